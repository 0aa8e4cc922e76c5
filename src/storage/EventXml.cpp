#include "storage/EventXml.h"

#include "storage/EventFields.h"
#include "storage/cSharedHTML.h"

#include <array>
#include <cstring>

namespace kaz {

namespace {

constexpr std::string_view kBlockHead = "<KAZ2>\r\n\t<EVENT>\r\n";
constexpr std::string_view kBlockTail = "\r\n</KAZ2>\r\n";

// What stands around the values of a block: between[0] before the first, between[i] after value i-1 and
// before value i, and the last one after the last value, up to the block end.
struct Layout {
    std::array<std::string, kEventFieldCount + 1> between;

    Layout() {
        const auto& fields = EventFields();
        const auto tag = [](std::string_view name) { return std::string("<").append(name).append(">"); };
        const auto endTag = [](std::string_view name) { return std::string("</").append(name).append(">"); };
        between[0] = "\t\t" + tag(fields[0].tag);
        for (std::size_t i = 1; i < kEventFieldCount; ++i)
            between[i] = endTag(fields[i - 1].tag) + "\r\n\t\t" + tag(fields[i].tag);
        between[kEventFieldCount] =
            endTag(fields[kEventFieldCount - 1].tag) + "\r\n\t" + std::string(EventXml::kBlockEnd);
    }
};

const Layout& WrittenLayout() {
    static const Layout layout;
    return layout;
}

using Values = std::array<std::string_view, kEventFieldCount>;

bool Skip(std::string_view& text, std::string_view expected) {
    if (!text.starts_with(expected)) return false;
    text.remove_prefix(expected.size());
    return true;
}

// Every "<" up to the block end is the head of one expected tag, so the first place at which a search could
// find a field's tag is the place where it was found here, and there is no other tag inside the value.
bool FindExpectedValues(std::string_view& text, Values& values) {
    const bool first = Skip(text, EventXml::kProlog);
    if (!first && !Skip(text, kBlockTail)) return false;
    const Layout& layout = WrittenLayout();
    if (!Skip(text, kBlockHead) || !Skip(text, layout.between[0])) return false;
    for (std::size_t i = 0; i < kEventFieldCount; ++i) {
        const void* found = std::memchr(text.data(), '<', text.size());
        if (found == nullptr) return false;
        values[i] = text.substr(0, static_cast<std::size_t>(static_cast<const char*>(found) - text.data()));
        text.remove_prefix(values[i].size());
        if (!Skip(text, layout.between[i + 1])) return false;
    }
    return true;
}

// A field that cannot be read is one line in the log and keeps its default; reading goes on with the next
// one.
void TransferXMLToObject(const Values& values, clsEvent& event, const LocaleData& locale, ErrorSink& errors) {
    ErrorTrap trap(errors, "TransferXMLToObject", "clsDbXml");
    const auto& fields = EventFields();
    for (std::size_t i = 0; i < kEventFieldCount; ++i)
        trap([&] { fields[i].read(event, FieldText(values[i], locale)); });
}

}  // namespace

void EventXml::AppendBlock(std::string& text, const clsEvent& event) {
    const Layout& layout = WrittenLayout();
    const auto& fields = EventFields();
    text.append(kBlockHead);
    for (std::size_t i = 0; i < kEventFieldCount; ++i) {
        text.append(layout.between[i]);
        fields[i].write(event, FieldWriter(text));
    }
    text.append(layout.between[kEventFieldCount]).append(kBlockTail);
}

bool EventXml::HoldsBlock(std::string_view piece) { return cSharedHTML::cInstr(piece, "<EVENT>") != 0; }

std::size_t EventXml::ReadAsWritten(std::string_view text, clsEvent& event) const {
    std::string_view rest = text;
    Values values;
    if (!FindExpectedValues(rest, values)) return 0;
    TransferXMLToObject(values, event, locale_, errors_);
    return text.size() - rest.size();
}

void EventXml::ReadBySearch(std::string_view piece, clsEvent& event) const {
    std::array<std::string, kEventFieldCount> contents;
    Values values;
    const auto& fields = EventFields();
    for (std::size_t i = 0; i < kEventFieldCount; ++i) {
        const std::string name(fields[i].searchedTag);
        contents[i] = cSharedHTML::ExtractBetweenTags(piece, "<" + name + ">", "</" + name + ">");
        values[i] = contents[i];
    }
    TransferXMLToObject(values, event, locale_, errors_);
}

}  // namespace kaz
