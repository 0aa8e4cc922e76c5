#pragma once

#include "model/words/When.h"
#include "model/words/WordTokens.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace kaz {

// Reads the pieces of a line that say when something is, all of them or nothing. One reader reads them once.
class WhenReader {
public:
    WhenReader(std::span<const WordToken> tokens, const WordTable& words, const WhenView& view)
        : tokens_(tokens),
          words_(words),
          view_(view) {}

    // Nothing when they say something else.
    std::optional<When> Read();

private:
    static constexpr int kMostCount = 999;  // of days, weeks, months and years

    bool IsAt(Word word) const { return at_ < tokens_.size() && tokens_[at_].word == word; }
    bool Take(Word word);
    // The number behind a word of that meaning, 0 for none.
    int TakeNumber(Word word);
    void Fault(std::string text);

    // Each takes what it says and is false, with nothing taken, when it is not there.
    bool ReadWhole();
    bool ReadTime();
    bool ReadClock(bool isSaid);
    bool ReadSoon();
    bool ReadDay(SaidDay& day);
    bool ReadDayName(SaidDay& day);
    bool ReadNamedDate(SaidDay& day);
    bool ReadNumericDate(SaidDay& day);
    bool ReadAhead(SaidDay& day);
    bool ReadNext();
    bool ReadRule();
    bool ReadEvery();
    bool ReadWeeks(int count);
    bool ReadMonths(int count);
    bool ReadYears(int count);
    bool ReadNth();
    bool SetYearly(const SaidDay& day, int count);
    int TakeDayNames();
    int TakeOfMonth();
    bool ReadEnd();

    DateValue Coming(int weekday) const;
    void SetDate(SaidDay& day, int number, int month, int year);
    RecurrenceRule& NewRule(std::int32_t type, int period);

    std::span<const WordToken> tokens_;
    const WordTable& words_;
    const WhenView& view_;
    std::size_t at_ = 0;
    When when_;
};

}  // namespace kaz
