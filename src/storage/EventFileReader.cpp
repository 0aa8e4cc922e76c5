#include "storage/EventFileReader.h"

#include "storage/cSharedHTML.h"

#include <algorithm>
#include <cstring>

namespace kaz {

namespace {

// A disk loses its pieces in sectors; shorter runs stand in the fields of old databases.
constexpr std::size_t kSector = 512;

bool Holds(std::string_view text, std::string_view tag) { return cSharedHTML::cInstr(text, tag) != 0; }

// The text from the last start tag on, "" without one.
std::string_view FromLast(std::string_view text, std::string_view tag) {
    std::string_view found;
    while (const auto at = cSharedHTML::cInstr(text, tag)) {
        text.remove_prefix(static_cast<std::size_t>(at) - 1);
        found = text;
        text.remove_prefix(tag.size());
    }
    return found;
}

bool IsLeftOpen(std::string_view text, std::string_view tag, std::string_view endTag) {
    const std::string_view last = FromLast(text, tag);
    return !last.empty() && !Holds(last, endTag);
}

}  // namespace

EventFileReader::EventFileReader(InputFile& file, const LocaleData& locale, ErrorSink& errors,
                                 std::size_t bufferSize)
    : file_(file),
      xml_(locale, errors),
      capacity_(std::max<std::size_t>(bufferSize, 1)),
      buffer_(std::make_unique_for_overwrite<char[]>(capacity_)) {}

bool EventFileReader::Next(clsEvent& event) {
    for (;;) {
        const std::string_view unread = Unread();
        if (const std::size_t length = xml_.ReadAsWritten(unread, event); length > 0) {
            Used(length);
            ++count_;
            return true;
        }
        const auto blockEnd = unread.find(EventXml::kBlockEnd, searched_);
        if (blockEnd == std::string_view::npos) {
            searched_ = unread.size() - std::min(unread.size(), EventXml::kBlockEnd.size() - 1);
            if (Refill()) continue;
        }
        // What follows the last block end is a piece too: a block there is read as far as it goes.
        const std::string_view piece = Unread().substr(0, blockEnd);
        const bool last = blockEnd == std::string_view::npos;
        const bool found = EventXml::HoldsBlock(piece);
        if (found) xml_.ReadBySearch(piece, event);
        if (last) LookAtEnd(piece);
        Used(last ? piece.size() : piece.size() + EventXml::kBlockEnd.size());
        if (found) ++count_;
        if (found || last) return found;
    }
}

std::size_t EventFileReader::EstimatedCount() const {
    const auto size = static_cast<double>(file_.Size());
    const double share = usedBytes_ == 0 ? 0.0 : size / static_cast<double>(usedBytes_);
    constexpr double kGenerous = 1.0625;
    // A written block is never shorter, so that a file of rubbish cannot ask for
    // more memory than its own size.
    constexpr double kShortestBlock = 512;
    return static_cast<std::size_t>(
        std::min(static_cast<double>(count_) * share * kGenerous, size / kShortestBlock));
}

std::string EventFileReader::Fault() const {
    if (IsEmpty()) return {};
    if (isWide_) return "is written with two bytes for each character (UTF-16)";
    if (zeros_ > 0 || hasGap_) return "holds zeros where text should stand";
    if (count_ == 0 && !hasTags_) return "holds something else than events";
    if (isCut_) return "is cut off in the middle of an event";
    return {};
}

void EventFileReader::LookAt(std::string_view bytes) {
    if (content_.Size() == 0) {
        const auto second = bytes.size() > 1 ? bytes[1] : ' ';
        isWide_ = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF") ||
                  (bytes.front() == '<' && second == '\0') || (bytes.front() == '\0' && second == '<');
    }
    content_.Add(bytes);
    // A run of zeros that is long enough covers one of these places.
    const auto run = [&](std::size_t at) {
        std::size_t first = at;
        std::size_t last = at;
        while (first > 0 && bytes[first - 1] == '\0')
            --first;
        while (last < bytes.size() && bytes[last] == '\0')
            ++last;
        return last - first;
    };
    for (std::size_t at = 0; at < bytes.size() && !hasGap_; at += kSector)
        hasGap_ = bytes[at] == '\0' && run(at) >= kSector;
    const auto text = bytes.find_last_not_of('\0');
    zeros_ = text == std::string_view::npos ? zeros_ + bytes.size() : bytes.size() - 1 - text;
}

// What stands behind the last whole block.
void EventFileReader::LookAtEnd(std::string_view rest) {
    if (rest.empty()) return;
    if (count_ == 0) hasTags_ = Holds(rest, "<?xml") || Holds(rest, "<KAZ2>") || EventXml::HoldsBlock(rest);
    const auto tag = rest.rfind('<');
    isCut_ = IsLeftOpen(rest, "<EVENT>", EventXml::kBlockEnd) || IsLeftOpen(rest, "<KAZ2>", "</KAZ2>") ||
             (tag != std::string_view::npos && rest.find('>', tag) == std::string_view::npos);
}

void EventFileReader::Used(std::size_t length) {
    begin_ += length;
    usedBytes_ += length;
    searched_ = 0;
}

bool EventFileReader::Refill() {
    const std::size_t kept = end_ - begin_;
    if (begin_ > 0) {
        std::memmove(buffer_.get(), buffer_.get() + begin_, kept);
    } else if (kept == capacity_) {
        auto larger = std::make_unique_for_overwrite<char[]>(capacity_ * 2);
        std::memcpy(larger.get(), buffer_.get(), kept);
        buffer_ = std::move(larger);
        capacity_ *= 2;
    }
    begin_ = 0;
    end_ = kept;
    while (end_ < capacity_ && !atEnd_) {
        const std::size_t read = file_.Read(buffer_.get() + end_, capacity_ - end_);
        atEnd_ = read == 0;
        end_ += read;
    }
    if (end_ > kept) LookAt({buffer_.get() + kept, end_ - kept});
    return end_ > kept;
}

}  // namespace kaz
