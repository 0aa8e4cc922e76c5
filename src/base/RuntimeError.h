#pragma once

#include <exception>
#include <string>
#include <utility>

namespace kaz {

// The numbers under which failures appear in the log and in error reports. They are the classic run-time
// error numbers that users and support have always quoted, so they stay what they are.
enum class ErrorNumber : int {
    InvalidCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    InternalError = 51,
    FileNotFound = 53,
    DeviceError = 57,
    DiskFull = 61,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
};

// The fixed description of a number, for example "Overflow" for 6.
const char* DescriptionOf(ErrorNumber number) noexcept;

// A failure with the number and the words that the log shows.
class RuntimeError : public std::exception {
public:
    explicit RuntimeError(ErrorNumber number) : RuntimeError(number, DescriptionOf(number)) {}
    RuntimeError(ErrorNumber number, std::string description)
        : number_(number),
          description_(std::move(description)) {}

    ErrorNumber Number() const noexcept { return number_; }
    const std::string& Description() const noexcept { return description_; }
    const char* what() const noexcept override { return description_.c_str(); }

private:
    ErrorNumber number_;
    std::string description_;
};

}  // namespace kaz
