#pragma once

#include "core/Application.h"
#include "storage/ChangeJournal.h"

#include <optional>
#include <string>
#include <vector>

namespace kaz {

// Notes in the journal what becomes of the events while it lives, whatever does it. For what happens rarely:
// it copies them.
class JournalScope {
public:
    // `what` is a noun, such as "restoring". The application outlives it.
    JournalScope(Application& app, std::string what);
    ~JournalScope();
    JournalScope(const JournalScope&) = delete;
    JournalScope& operator=(const JournalScope&) = delete;

private:
    Application& app_;
    std::string what_;
    std::vector<clsEvent> events_;
    std::vector<clsEvent> expired_;
    std::optional<ChangeJournal::Silence> silence_;
};

}  // namespace kaz
