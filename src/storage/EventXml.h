#pragma once

#include "base/ErrorTrap.h"
#include "base/LocaleData.h"
#include "model/clsEvent.h"

#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// One event as a block of tagged text, in both directions. What a block looks like stands in one table: the
// tags in the order of the file, and for each the writer and the reader of its value.
class EventXml {
public:
    // The first line of an event file; the text of a database without events.
    static constexpr std::string_view kProlog = "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>\r\n";
    // Where a file is split into blocks; in exactly this spelling.
    static constexpr std::string_view kBlockEnd = "</EVENT>";

    // A value that cannot be converted is told to `errors`, and the field keeps what the event held. Both
    // outlive the object.
    EventXml(const LocaleData& locale, ErrorSink& errors) : locale_(locale), errors_(errors) {}

    static void AppendBlock(std::string& text, const clsEvent& event);

    // The first tag of the format in a text, "" when there is none. A text with one would break the file as
    // the value of a field that is not encoded.
    static std::string FirstTag(std::string_view text);

    // How many events the text of a file holds.
    static std::size_t CountIn(std::string_view text);
    // Reads them all, whatever their layout.
    std::vector<clsEvent> ReadAll(std::string_view text) const;

    // Whether a piece of a file, up to its block end, holds a block.
    static bool HoldsBlock(std::string_view piece);

    // Reads the block at the head of `text` if everything up to its end stands just where AppendBlock puts
    // it, and returns the length with the block end. Else, or when `text` ends too early, returns 0 and has
    // read nothing. The result is always that of ReadBySearch for the same piece, several times as fast.
    std::size_t ReadAsWritten(std::string_view text, clsEvent& event) const;

    // Reads a piece whatever its layout: each field from its first start tag on, wherever that stands.
    void ReadBySearch(std::string_view piece, clsEvent& event) const;

private:
    const LocaleData& locale_;
    ErrorSink& errors_;
};

}  // namespace kaz
