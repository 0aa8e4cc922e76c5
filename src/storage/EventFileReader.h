#pragma once

#include "base/ErrorTrap.h"
#include "base/LocaleData.h"
#include "model/clsEvent.h"
#include "platform/FileSystem.h"
#include "storage/ContentHash.h"
#include "storage/EventXml.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace kaz {

// Reads the events of a file one after the other through one buffer, which grows
// only for a block that is longer.
class EventFileReader {
public:
    static constexpr std::size_t kBufferSize = std::size_t{256} * 1024;

    // All of them outlive the reader.
    EventFileReader(InputFile& file, const LocaleData& locale, ErrorSink& errors,
                    std::size_t bufferSize = kBufferSize);

    // Reads the next block into `event`, which has to be new; false at the end of the file. Throws as
    // InputFile does.
    bool Next(clsEvent& event);

    // What is wrong with the file as a whole, known at its end and in words that follow its name; "" for a
    // file of events, or one without a byte.
    std::string Fault() const;
    // The same number for the same bytes.
    std::uint64_t ContentPrint() const { return content_.Value(); }
    bool IsEmpty() const { return content_.Size() == 0; }

    // How many events the whole file holds, judged by those read so far and a little generously.
    std::size_t EstimatedCount() const;

private:
    std::string_view Unread() const { return {buffer_.get() + begin_, end_ - begin_}; }
    void Used(std::size_t length);
    bool Refill();
    void LookAt(std::string_view bytes);
    void LookAtEnd(std::string_view rest);

    InputFile& file_;
    EventXml xml_;
    std::size_t capacity_;
    std::unique_ptr<char[]> buffer_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    bool atEnd_ = false;        // nothing more to read into the buffer
    std::size_t searched_ = 0;  // of the unread text: no block end begins before this
    std::size_t usedBytes_ = 0;
    std::size_t count_ = 0;

    ContentHash content_;
    std::size_t zeros_ = 0;  // at the end of what was read
    bool hasGap_ = false;    // zeros where a disk should have had a piece of the file
    bool hasTags_ = false;   // of an event file
    bool isWide_ = false;    // two bytes for each character
    bool isCut_ = false;
};

}  // namespace kaz
