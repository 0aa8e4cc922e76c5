#pragma once

#include "base/DateValue.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/SystemInfo.h"

#include <memory>
#include <optional>
#include <string>

namespace kaz {

// The mark of a running program: a file of this machine that is there from the start to the proper end, so
// that a start which finds one left behind knows of a run that died. It is kept open meanwhile; what a second
// program on the same folder cannot open belongs to one that lives.
class RunMark {
public:
    // All of them outlive the mark.
    RunMark(FileSystem& files, const SystemInfo& system, const Clock& clock)
        : files_(files),
          system_(system),
          clock_(clock) {}

    struct Died {
        std::optional<DateValue> lastSign;  // of life; unknown when the file cannot be made out
    };

    // Begins the run on that folder. Tells of the run before when that one has had no end. Where the mark
    // cannot be made, nothing is known of this run afterwards, and nothing told.
    std::optional<Died> Begin(const std::string& folder) noexcept;
    // That the program lives at this time.
    void Sign() noexcept;
    // A proper end; without it the mark stays.
    void End() noexcept;

private:
    std::string PathFor(const std::string& folder) const;

    FileSystem& files_;
    const SystemInfo& system_;
    const Clock& clock_;
    std::string path_;
    std::unique_ptr<OutputFile> held_;
};

}  // namespace kaz
