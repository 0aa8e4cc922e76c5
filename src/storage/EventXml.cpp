#include "storage/EventXml.h"

#include "base/CaseFolding.h"
#include "storage/EventFields.h"
#include "storage/cSharedHTML.h"

#include <array>
#include <cstring>

namespace kaz {

namespace {

constexpr std::string_view kBlockHead = "<KAZ2>\r\n\t<EVENT>\r\n";
constexpr std::string_view kBlockTail = "\r\n</KAZ2>\r\n";

std::string StartTag(std::string_view name) { return std::string("<").append(name).append(">"); }
std::string EndTag(std::string_view name) { return std::string("</").append(name).append(">"); }

// The tags of a block, put together once.
struct Layout {
    // What stands around the values: between[0] before the first, between[i] after value i-1 and before value
    // i, and the last one after the last value, up to the block end.
    std::array<std::string, kEventFieldCount + 1> between;
    std::array<std::string, kEventFieldCount> searchedStart;
    std::array<std::string, kEventFieldCount> searchedEnd;

    Layout() {
        const auto& fields = EventFields();
        between[0] = "\t\t" + StartTag(fields[0].tag);
        for (std::size_t i = 1; i < kEventFieldCount; ++i)
            between[i] = EndTag(fields[i - 1].tag) + "\r\n\t\t" + StartTag(fields[i].tag);
        between.back() = EndTag(fields.back().tag) + "\r\n\t" + std::string(EventXml::kBlockEnd);
        for (std::size_t i = 0; i < kEventFieldCount; ++i) {
            searchedStart[i] = StartTag(fields[i].searchedTag);
            searchedEnd[i] = EndTag(fields[i].searchedTag);
        }
    }
};

const Layout& BlockLayout() {
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
    const Layout& layout = BlockLayout();
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

using Places = std::array<std::size_t, kEventFieldCount>;

// Where a search from the start of the piece finds each field's start tag; one
// walk instead of a search for each.
Places FirstPlaces(std::string_view piece) {
    Places places;
    places.fill(std::string_view::npos);
    std::size_t missing = kEventFieldCount;
    std::size_t next = 0;  // a file in another layout still tends to have the fields in their order
    for (auto at = piece.find('<'); at != std::string_view::npos && missing > 0;
         at = piece.find('<', at + 1)) {
        const std::string_view rest = piece.substr(at);
        if (rest.starts_with("</")) continue;
        for (std::size_t tried = 0; tried < kEventFieldCount; ++tried) {
            const std::size_t field = (next + tried) % kEventFieldCount;
            const std::string& tag = BlockLayout().searchedStart[field];
            if (rest.size() < tag.size() || rest[tag.size() - 1] != '>') continue;
            if (!CaseFolding::Ascii().Equal(rest.substr(0, tag.size()), tag)) continue;
            if (places[field] == std::string_view::npos) {
                places[field] = at;
                --missing;
            }
            next = field + 1;
            break;
        }
    }
    return places;
}

// A field that cannot be read is one line in the log and keeps its default;
// reading goes on with the next one.
void TransferXMLToObject(const Values& values, clsEvent& event, const LocaleData& locale, ErrorSink& errors) {
    ErrorTrap trap(errors, "TransferXMLToObject", "clsDbXml");
    const auto& fields = EventFields();
    for (std::size_t i = 0; i < kEventFieldCount; ++i)
        trap([&] { fields[i].read(event, FieldText(values[i], locale)); });
}

}  // namespace

void EventXml::AppendBlock(std::string& text, const clsEvent& event) {
    const Layout& layout = BlockLayout();
    const auto& fields = EventFields();
    text.append(kBlockHead);
    for (std::size_t i = 0; i < kEventFieldCount; ++i) {
        text.append(layout.between[i]);
        fields[i].write(event, FieldWriter(text));
    }
    text.append(layout.between[kEventFieldCount]).append(kBlockTail);
}

std::string EventXml::FirstTag(std::string_view text) {
    const auto isTag = [](std::string_view found, std::string_view name) {
        return CaseFolding::Ascii().Equal(found, StartTag(name)) ||
               CaseFolding::Ascii().Equal(found, EndTag(name));
    };
    for (auto at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1)) {
        const std::string_view found = text.substr(at, text.find('>', at) - at + 1);
        if (isTag(found, "EVENT") || isTag(found, "KAZ2")) return std::string(found);
        for (const EventField& field : EventFields())
            if (isTag(found, field.tag)) return std::string(found);
    }
    return {};
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
    const Layout& layout = BlockLayout();
    const Places places = FirstPlaces(piece);
    std::array<std::string, kEventFieldCount> contents;
    Values values;
    for (std::size_t i = 0; i < kEventFieldCount; ++i) {
        if (places[i] == std::string_view::npos) continue;
        contents[i] = cSharedHTML::ExtractBetweenTags(piece.substr(places[i]), layout.searchedStart[i],
                                                      layout.searchedEnd[i]);
        values[i] = contents[i];
    }
    TransferXMLToObject(values, event, locale_, errors_);
}

std::size_t EventXml::CountIn(std::string_view text) {
    std::size_t count = 0;
    for (auto at = text.find(kBlockEnd); at != std::string_view::npos;
         at = text.find(kBlockEnd, at + kBlockEnd.size()))
        ++count;
    return count;
}

std::vector<clsEvent> EventXml::ReadAll(std::string_view text) const {
    std::vector<clsEvent> events;
    for (auto end = text.find(kBlockEnd); end != std::string_view::npos; end = text.find(kBlockEnd)) {
        const std::string_view piece = text.substr(0, end);
        if (HoldsBlock(piece)) ReadBySearch(piece, events.emplace_back());
        text.remove_prefix(end + kBlockEnd.size());
    }
    return events;
}

}  // namespace kaz
