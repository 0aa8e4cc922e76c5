#include "storage/TaskFile.h"

#include "base/CodePage.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/Files.h"
#include "storage/cSharedHTML.h"
#include "support/Names.h"

#include <array>

namespace kaz {

namespace {

constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>";
constexpr std::string_view kRoot = "<KAZ2>";
constexpr std::string_view kRootEnd = "</KAZ2>";
constexpr std::string_view kTask = "<TASK>";
constexpr std::string_view kTaskEnd = "</TASK>";
constexpr std::string_view kDetails = "<DETAILS>";
constexpr std::string_view kDetailsEnd = "</DETAILS>";

std::string FileText(const std::vector<std::string>& tasks) {
    std::string text;
    const auto line = [&](std::string_view indent, auto... parts) {
        text.append(indent);
        (text.append(parts), ...);
        text.append(kLineBreak);
    };
    line("", kDeclaration);
    line("", kRoot);
    line("\t", kTask);
    for (const std::string& task : tasks)
        line("\t\t", kDetails, task, kDetailsEnd);
    line("\t", kTaskEnd);
    line("", kRootEnd);
    return text;
}

std::vector<std::string> TasksOf(std::string_view text) {
    const std::string content = cSharedHTML::ExtractBetweenTags(text, kTask, kTaskEnd);
    std::vector<std::string> pieces;
    cSharedHTML::ExtractXMLArray(content, kDetails, kTaskEnd, kDetailsEnd, pieces);
    std::vector<std::string> tasks;
    for (const std::string& piece : pieces)
        if (cSharedHTML::cInstr(piece, kDetails) > 0)
            tasks.push_back(cSharedHTML::ExtractBetweenTags(piece, kDetails, kDetailsEnd));
    // In somebody's own editing the last end tag may be missing; what lies around
    // the tags is no part of a task.
    if (!pieces.empty() && cSharedHTML::cInstr(pieces.back(), kDetails) > 0)
        tasks.back().resize(tasks.back().find_last_not_of(" \t\r\n") + 1);
    return tasks;
}

std::vector<std::string> LinesOf(std::string_view text) {
    std::vector<std::string> lines;
    for (std::string_view line : Split(text, "\n")) {
        if (line.ends_with('\r')) line.remove_suffix(1);
        lines.emplace_back(line);
    }
    // What follows the last line's end is no line.
    if (lines.back().empty()) lines.pop_back();
    return lines;
}

// Whether the end of the file is missing: whatever was in it, what is left may be some of the tasks only.
bool IsCut(std::string_view text) {
    const auto begin = cSharedHTML::cInstr(text, kTask);
    return begin > 0 && cSharedHTML::cInstr(text.substr(static_cast<std::size_t>(begin)), kTaskEnd) == 0;
}

}  // namespace

TaskFile::TaskFile(FileSystem& files, const std::string& folder)
    : files_(&files),
      path_(JoinPath(folder, kTaskFile)),
      plainPath_(WithExtension(path_, kOldExtension)),
      keptPath_(WithExtension(path_, ".bak")) {}

std::string TaskFile::FaultOf(std::string_view task) {
    if (const CodePage& page = CodePage::OfSystem(); !page.Holds(task)) return page.Refusal(task);
    if (task.find_first_of(kLineBreak) != std::string_view::npos) return "A task must be a single line.";
    for (const std::string_view tag : std::array{kTask, kTaskEnd, kDetails, kDetailsEnd})
        if (cSharedHTML::cInstr(task, tag) > 0)
            return std::string("A task must not contain \"")
                .append(tag)
                .append("\", which has a meaning in the task file.");
    return {};
}

TaskFile::Content TaskFile::Read() const {
    const bool plain =
        files_->Kind(path_) == PathKind::Missing && files_->Kind(plainPath_) != PathKind::Missing;
    const std::string& path = plain ? plainPath_ : path_;
    const std::string bytes = ReadFileOrEmpty(*files_, path);
    const bool isEmptied = bytes.empty() && FileExists(*files_, path) && HadTasks();
    if (isEmptied || !IsText(bytes) || (!plain && IsCut(bytes)))
        throw RuntimeError(
            ErrorNumber::TypeMismatch,
            "the file is damaged, and left as it is. The main window offers what can take its place");
    return {plain, CodePage::OfSystem().Decode(bytes)};
}

// What was empty from the beginning may be a new file of somebody's.
bool TaskFile::HadTasks() const {
    return known_ ? !TasksIn(*known_).empty() : backupHasTasks_ && backupHasTasks_();
}

std::size_t TaskFile::CountIn(std::string_view text) { return TasksOf(text).size(); }

std::vector<std::string> TaskFile::TasksIn(const Content& content) {
    return content.plain ? LinesOf(content.text) : TasksOf(content.text);
}

std::vector<std::string> TaskFile::Load() {
    known_ = Read();
    return TasksIn(*known_);
}

bool TaskFile::Changed() const { return known_ != Read(); }

void TaskFile::Save(const std::vector<std::string>& tasks) {
    // Somebody's own editing may hold more than was understood of it.
    const bool foreign =
        known_ && !known_->plain && !known_->text.empty() && known_->text != FileText(TasksOf(known_->text));
    const CodePage& page = CodePage::OfSystem();
    if (foreign) WriteWholeFile(*files_, keptPath_, page.Encode(known_->text));
    Content content{false, FileText(tasks)};
    WriteWholeFile(*files_, path_, page.Encode(content.text));
    known_ = std::move(content);
}

}  // namespace kaz
