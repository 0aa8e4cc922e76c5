#include "base/CaseFolding.h"
#include "storage/EventFields.h"
#include "storage/clsDB2.h"

#include <algorithm>
#include <unordered_set>

namespace kaz {

namespace {

// Whether a reader of the tagged file would take some of the text for the file's own tags.
bool HoldsTag(std::string_view text) {
    const auto holds = [&](std::string_view tag) {
        return CaseFolding::Ascii().Find(text, tag) != std::string::npos;
    };
    const auto& fields = EventFields();
    return holds("</") || holds("<EVENT>") ||
           std::any_of(fields.begin(), fields.end(),
                       [&](const EventField& field) { return holds("<" + std::string(field.tag) + ">"); });
}

// A record holds any bytes, but these texts stand in the tagged file just as they are.
std::string Tame(std::string text) {
    if (text.find('<') != std::string::npos && HoldsTag(text)) std::erase(text, '<');
    return text;
}

}  // namespace

void clsDB2::ExportToXML(clsDbXml& target) {
    ErrorTrap trap(stores_.log, "ExportToXML", "clsDB2");
    std::vector<clsEvent> withoutCode;
    std::unordered_set<std::string> codes;
    for (const clsEvent& event : target.AllEvents())
        codes.insert(event.IDCode);
    for (clsEvent event : memory_.AllEvents()) {
        event.IDCode = Tame(std::move(event.IDCode));
        event.Owner(Tame(event.Owner()));
        event.Filename = Tame(std::move(event.Filename));
        event.Email = Tame(std::move(event.Email));
        event.WavFile = Tame(std::move(event.WavFile));
        if (!event.IDCode.empty() && codes.insert(event.IDCode).second)
            target.StoreRecord(std::move(event));
        else
            withoutCode.push_back(std::move(event));
    }
    for (clsEvent& event : withoutCode)
        trap([&] { target.StoreRecord(std::move(event), true); });
}

}  // namespace kaz
