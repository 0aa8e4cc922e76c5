#pragma once

#include <filesystem>
#include <string>

namespace kaz::test {

// A folder of its own for one test, removed at the end.
class TestFolder {
public:
    TestFolder();
    ~TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    void Write(const std::string& name, const std::string& bytes) const;
    // "" when there is no such file.
    std::string Read(const std::string& name) const;

private:
    std::filesystem::path path_;
};

// One event of a file of events; what is not named here is left out of the record, as in a file of an old
// version.
struct EventLine {
    std::string code;
    std::string encodedDescription;
    int daysFromToday = 0;
    std::string email = {};
    int daysWarning = 3;
};
std::string EventFile(std::initializer_list<EventLine> events);

// A file without reminder windows or network: an owner, and nothing else.
inline const char* const kSettings = "OWNER,Ann\r\nNOAUTOBACKUPS,-1\r\n";

}  // namespace kaz::test
