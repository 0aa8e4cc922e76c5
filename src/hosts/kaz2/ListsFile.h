#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// What the component raised, as a UTF-8 text for scripts and tests: headings, then one line each. Rewritten
// at each scan; mails are kept, since each is raised once only.
class ListsFile {
public:
    // An empty name: nothing is written.
    explicit ListsFile(std::wstring fileName) : fileName_(std::move(fileName)) {}

    void Today(std::vector<std::wstring> lines) { today_ = std::move(lines); }
    void ComingUp(std::vector<std::wstring> lines) { comingUp_ = std::move(lines); }
    // Notes that a mail was asked for; what became of it is in the host's log.
    void Mail(std::wstring_view to, std::wstring_view subject, std::wstring_view text);
    // The last of a scan; writes the file.
    void All(std::wstring_view lines);

private:
    void Write(const std::string& text) const;

    std::wstring fileName_;
    std::vector<std::wstring> today_;
    std::vector<std::wstring> comingUp_;
    std::vector<std::wstring> mails_;
};

}  // namespace kaz
