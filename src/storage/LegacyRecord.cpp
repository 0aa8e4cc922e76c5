#include "storage/LegacyRecord.h"

#include "base/CodePage.h"
#include "base/Numbers.h"
#include "base/Text.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <span>

namespace kaz {

namespace {

// The bytes of one field, read as one of the record's kinds of value. Numbers have their lowest byte first.
class In {
public:
    explicit In(std::string_view bytes) : bytes_(bytes) {}

    std::int16_t Int16() const { return static_cast<std::int16_t>(Bits()); }
    std::int32_t Int32() const { return static_cast<std::int32_t>(Bits()); }
    bool Flag() const { return Bits() != 0; }
    DateValue Date() const { return DateValue::FromSerial(std::bit_cast<double>(Bits())); }
    // A field that was never filled holds zeros instead of blanks.
    std::string Text() const {
        return CodePage::OfSystem().Decode(Trim(bytes_.substr(0, bytes_.find('\0'))));
    }
    // A text of one line.
    std::string Line() const {
        std::string text = Text();
        std::erase_if(text, IsControl);
        return std::string(Trim(text));
    }

private:
    std::uint64_t Bits() const {
        std::uint64_t bits = 0;
        for (std::size_t i = bytes_.size(); i-- > 0;)
            bits = bits << 8 | static_cast<unsigned char>(bytes_[i]);
        return bits;
    }

    std::string_view bytes_;
};

class Out {
public:
    explicit Out(std::span<char> bytes) : bytes_(bytes) {}

    void Number(std::int64_t value) { Bits(static_cast<std::uint64_t>(value)); }
    void Flag(bool value) { Number(value ? -1 : 0); }
    void Date(DateValue value) { Bits(std::bit_cast<std::uint64_t>(value.Serial())); }
    void Text(std::string_view text) {
        std::fill(bytes_.begin(), bytes_.end(), ' ');
        CodePage::OfSystem().Encode(text).copy(bytes_.data(), bytes_.size());
    }

private:
    void Bits(std::uint64_t bits) {
        for (char& byte : bytes_) {
            byte = static_cast<char>(bits & 0xFF);
            bits >>= 8;
        }
    }

    std::span<char> bytes_;
};

struct Field {
    std::size_t offset;
    std::size_t size;
    void (*read)(clsEvent& event, In in);
    void (*write)(const clsEvent& event, Out out);
};

using E = clsEvent;

// Eight bytes at 224 are reserved.
constexpr Field kRecordLayout[] = {
    {0, 2, [](E& e, In in) { e.Deleted = in.Flag(); }, [](const E& e, Out out) { out.Flag(e.Deleted); }},
    {2, 8, [](E& e, In in) { e.DueDate(in.Date()); }, [](const E& e, Out out) { out.Date(e.DueDate()); }},
    {10, 8, [](E& e, In in) { e.DueTime(in.Date()); }, [](const E& e, Out out) { out.Date(e.DueTime()); }},
    {18, 200, [](E& e, In in) { e.Desc(in.Text()); }, [](const E& e, Out out) { out.Text(e.Desc()); }},
    {218, 2, [](E& e, In in) { e.Recurring(in.Flag()); },
     [](const E& e, Out out) { out.Flag(e.Recurring()); }},
    {220, 2, [](E& e, In in) { e.DaysWarning(in.Int16()); },
     [](const E& e, Out out) { out.Number(e.DaysWarning()); }},
    {222, 2, [](E& e, In in) { e.MinutesWarning(in.Int16()); },
     [](const E& e, Out out) { out.Number(e.MinutesWarning()); }},
    {232, 12, [](E& e, In in) { e.IDCode = in.Line(); }, [](const E& e, Out out) { out.Text(e.IDCode); }},
    {244, 2, [](E& e, In in) { e.RecurrenceType(in.Int16()); },
     [](const E& e, Out out) { out.Number(ToInt16(e.RecurrenceType())); }},
    {246, 2, [](E& e, In in) { e.AlarmSet(in.Flag()); }, [](const E& e, Out out) { out.Flag(e.AlarmSet()); }},
    {248, 2, [](E& e, In in) { e.WeekDays(in.Int16()); },
     [](const E& e, Out out) { out.Number(e.WeekDays()); }},
    {250, 2, [](E& e, In in) { e.DayOfMonth(in.Int16()); },
     [](const E& e, Out out) { out.Number(e.DayOfMonth()); }},
    {252, 2, [](E& e, In in) { e.MonthNumber(in.Int16()); },
     [](const E& e, Out out) { out.Number(e.MonthNumber()); }},
    {254, 2, [](E& e, In in) { e.Daynumber(in.Int16()); },
     [](const E& e, Out out) { out.Number(e.Daynumber()); }},
    {256, 2, [](E& e, In in) { e.DayOfWeek(in.Int16()); },
     [](const E& e, Out out) { out.Number(e.DayOfWeek()); }},
    {258, 8, [](E& e, In in) { e.StartDate(in.Date()); },
     [](const E& e, Out out) { out.Date(e.StartDate()); }},
    {266, 2, [](E& e, In in) { e.Period(in.Int16()); }, [](const E& e, Out out) { out.Number(e.Period()); }},
    {268, 4, [](E& e, In in) { e.DaysLeft(in.Int32()); },
     [](const E& e, Out out) { out.Number(e.DaysLeft()); }},
    {272, 2, [](E& e, In in) { e.Layer(in.Int16()); }, [](const E& e, Out out) { out.Number(e.Layer()); }},
    {274, 14, [](E& e, In in) { e.Owner(in.Line()); }, [](const E& e, Out out) { out.Text(e.Owner()); }},
    {288, 2, [](E& e, In in) { e.SharedEvent = in.Flag(); },
     [](const E& e, Out out) { out.Flag(e.SharedEvent); }},
    {290, 8, [](E& e, In in) { e.AlarmTime(in.Date()); },
     [](const E& e, Out out) { out.Date(e.AlarmTime()); }},
    {298, 2, [](E& e, In in) { e.ExecFile = in.Flag(); }, [](const E& e, Out out) { out.Flag(e.ExecFile); }},
    {300, 150, [](E& e, In in) { e.Filename = in.Line(); },
     [](const E& e, Out out) { out.Text(e.Filename); }},
    {450, 48, [](E& e, In in) { e.Email = in.Line(); }, [](const E& e, Out out) { out.Text(e.Email); }},
};

}  // namespace

void ReadLegacyRecord(std::string_view record, clsEvent& event, ErrorTrap& trap) {
    std::string whole(record.substr(0, kLegacyRecordSize));
    whole.resize(kLegacyRecordSize, '\0');
    for (const Field& field : kRecordLayout)
        trap([&] { field.read(event, In(std::string_view(whole).substr(field.offset, field.size))); });
}

std::string LegacyRecordOf(const clsEvent& event, ErrorTrap& trap) {
    std::string record(kLegacyRecordSize, '\0');
    for (const Field& field : kRecordLayout)
        trap([&] { field.write(event, Out(std::span(record).subspan(field.offset, field.size))); });
    return record;
}

}  // namespace kaz
