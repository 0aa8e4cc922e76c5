#include "storage/EventFileReader.h"

#include <algorithm>
#include <cstring>

namespace kaz {

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
        Used(last ? piece.size() : piece.size() + EventXml::kBlockEnd.size());
        if (found) ++count_;
        if (found || last) return found;
    }
}

std::size_t EventFileReader::EstimatedCount() const {
    const auto size = static_cast<double>(file_.Size());
    const double share = usedBytes_ == 0 ? 0.0 : size / static_cast<double>(usedBytes_);
    constexpr double kGenerous = 1.0625;
    // A written block is never shorter, so that a file of rubbish cannot ask for more memory than its own
    // size.
    constexpr double kShortestBlock = 512;
    return static_cast<std::size_t>(
        std::min(static_cast<double>(count_) * share * kGenerous, size / kShortestBlock));
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
    return end_ > kept;
}

}  // namespace kaz
