#pragma once

#include "base/LocaleData.h"
#include "fakes/MemoryFileSystem.h"
#include "fakes/RecordingErrors.h"
#include "storage/EventFields.h"
#include "storage/EventFileReader.h"
#include "storage/EventXml.h"
#include "storage/cSharedHTML.h"

#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// An event file as read: each event in one text, and the errors in their order. Equal when nothing differs.
struct EventReading {
    std::vector<std::string> events;
    std::vector<std::string> errors;
    friend bool operator==(const EventReading&, const EventReading&) = default;

    void Add(const clsEvent& event) {
        std::string& text = events.emplace_back();
        EventXml::AppendBlock(text, event);
        // The seconds do not stand in the file.
        text += std::to_string(event.AlarmTime().SecondOfDay()) + " " +
                std::to_string(event.DueTime().SecondOfDay());
    }

    // Word for word what the format says: split at every block end, then search each field from the start of
    // the piece.
    static EventReading BySearch(std::string_view file, const LocaleData& locale) {
        EventReading reading;
        RecordingErrors errors;
        for (bool last = false; !last;) {
            const auto blockEnd = file.find("</EVENT>");
            last = blockEnd == std::string_view::npos;
            const std::string_view piece = file.substr(0, blockEnd);
            if (!last) file.remove_prefix(blockEnd + 8);
            if (cSharedHTML::cInstr(piece, "<EVENT>") == 0) continue;
            clsEvent event;
            for (const EventField& field : EventFields()) {
                const std::string name(field.tag);
                const std::string content =
                    cSharedHTML::ExtractBetweenTags(piece, "<" + name + ">", "</" + name + ">");
                ErrorTrap trap(errors, "TransferXMLToObject", "clsDbXml");
                trap([&] { field.read(event, FieldText(content, locale)); });
            }
            reading.Add(event);
        }
        reading.errors = errors.told;
        return reading;
    }

    static EventReading Streamed(std::string_view file, const LocaleData& locale,
                                 std::size_t bufferSize = EventFileReader::kBufferSize) {
        MemoryFileSystem files;
        files.Put("C:\\e.xml", std::string(file));
        const auto input = files.OpenForReading("C:\\e.xml");
        EventReading reading;
        RecordingErrors errors;
        EventFileReader reader(*input, locale, errors, bufferSize);
        for (clsEvent event; reader.Next(event); event = {})
            reading.Add(event);
        reading.errors = errors.told;
        return reading;
    }
};

}  // namespace kaz
