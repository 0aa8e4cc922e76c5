#pragma once

#include "base/DateValue.h"
#include "base/LocaleData.h"

#include <array>
#include <optional>
#include <string_view>

namespace kaz {

// Reads a date, a time or both in the forms that people write in a locale. One scanner reads one text, once.
class DateScanner {
public:
    DateScanner(std::string_view text, const LocaleData& locale) : text_(text), locale_(locale) {}

    std::optional<DateValue> Scan();

private:
    struct Part {
        int value = 0;
        int digits = 0;  // 0 for a month's name
        bool IsYear() const { return digits > 2; }
    };

    struct Half {
        std::size_t end = 0;
        bool afternoon = false;
    };

    bool At(char c) const { return at_ < text_.size() && text_[at_] == c; }
    void SkipBlanks();
    std::optional<Part> ReadNumber();
    bool ScanNumber();
    bool ScanTime(Part hour);
    // The sign for the half of the day that stands here, and where it ends.
    std::optional<Half> FindHalf() const;
    bool ScanSeparator();
    bool ScanName();
    // The length of the name when it stands there as a whole word, with or without its full stop; else 0.
    std::size_t NameLength(std::string_view name, std::size_t at) const;
    bool AddPart(Part part);
    std::optional<DateValue> Date() const;

    std::string_view text_;
    const LocaleData& locale_;
    std::size_t at_ = 0;
    std::array<Part, 3> parts_;
    std::size_t count_ = 0;
    std::optional<int> monthName_;  // its place in parts_
    std::optional<DateValue> time_;
    bool anything_ = false;
    char separator_ = 0;  // what stands between the last part and the next
};

}  // namespace kaz
