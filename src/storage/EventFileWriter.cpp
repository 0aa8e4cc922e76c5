#include "storage/EventFileWriter.h"

#include "storage/EventXml.h"

#include <algorithm>
#include <string>

namespace kaz {

void WriteEvents(const std::vector<clsEvent>& events, const std::function<void(std::string_view)>& write) {
    constexpr std::size_t kPiece = std::size_t{256} * 1024;
    constexpr std::size_t kUsualBlock = std::size_t{8} * 1024;
    std::string text;
    text.reserve(std::min(kPiece + kUsualBlock, (events.size() + 1) * kUsualBlock));
    text = EventXml::kProlog;
    for (const clsEvent& event : events) {
        if (!event.Deleted) EventXml::AppendBlock(text, event);
        if (text.size() < kPiece) continue;
        write(text);
        text.clear();
    }
    write(text);
}

}  // namespace kaz
