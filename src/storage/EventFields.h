#pragma once

#include "base/DateValue.h"
#include "base/LocaleData.h"
#include "model/clsEvent.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace kaz {

// The text of one field as it stands in a file, in bytes of the code page. A conversion that fails throws
// TypeMismatch or Overflow.
class FieldText {
public:
    FieldText(std::string_view text, const LocaleData& locale) : text_(text), locale_(locale) {}

    std::string Text() const;
    std::string Decoded() const;
    bool Flag() const { return text_ == "-1"; }
    std::int16_t Int16() const;
    std::int32_t Int32() const;
    DateValue Date() const;

private:
    std::string_view text_;
    const LocaleData& locale_;
};

// Appends the value of one field to the text of a file.
class FieldWriter {
public:
    explicit FieldWriter(std::string& text) : text_(text) {}

    void Text(std::string_view value);
    // What is the name of something elsewhere; see CodePage::Otherwise.
    void Name(std::string_view value);
    void Encoded(std::string_view value);
    void Flag(bool value) { text_.append(value ? "-1" : "0"); }
    void Number(std::int32_t value);
    void Date(DateValue value);
    void DateTime(DateValue value);

private:
    std::string& text_;
};

// One line of an event block.
struct EventField {
    using Write = void (*)(const clsEvent& event, FieldWriter to);
    using Read = void (*)(clsEvent& event, const FieldText& from);

    constexpr EventField(std::string_view name, Write writer, Read reader)
        : tag(name),
          searchedTag(name),
          write(writer),
          read(reader) {}

    std::string_view tag;
    std::string_view searchedTag;
    Write write;
    Read read;
};

inline constexpr std::size_t kEventFieldCount = 31;

// In the order of the file.
const std::array<EventField, kEventFieldCount>& EventFields();

}  // namespace kaz
