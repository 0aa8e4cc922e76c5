#pragma once

#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "storage/ChangedEvent.h"
#include "support/cSharedLogging.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// What became of each event, one line a change, in a plain text beside the log: whoever asks where his
// dentist went finds it there long after the program has ended. Nothing here throws, and a line that cannot
// be written is told in the log and lost.
class ChangeJournal {
public:
    // The file becomes the old one, in the place of an older one, before it would grow beyond this; a single
    // command may be larger.
    static constexpr std::size_t kMostBytes = std::size_t{1024} * 1024;

    // All of them outlive the journal. `folder` is asked each time.
    ChangeJournal(FileSystem& files, const Clock& clock, cSharedLogging& log,
                  std::function<std::string()> folder)
        : files_(files),
          clock_(clock),
          log_(log),
          folder_(std::move(folder)) {}

    std::string FileName() const;
    // `what` is a noun, such as "deletion"; without one, each change says itself what it is.
    void Write(std::string_view who, std::string_view what,
               const std::vector<ChangedEvent>& changes) noexcept;

    // While it lives, nothing is written: somebody else writes what happens meanwhile as one.
    class Silence {
    public:
        explicit Silence(ChangeJournal& journal) : journal_(journal) { ++journal_.silences_; }
        ~Silence() { --journal_.silences_; }
        Silence(const Silence&) = delete;
        Silence& operator=(const Silence&) = delete;

    private:
        ChangeJournal& journal_;
    };

private:
    void MakeRoom(const std::string& file, std::size_t bytes);

    FileSystem& files_;
    const Clock& clock_;
    cSharedLogging& log_;
    std::function<std::string()> folder_;
    int silences_ = 0;
};

}  // namespace kaz
