#include "core/TaskFile.h"

#include "base/Text.h"
#include "core/Names.h"
#include "platform/Files.h"
#include "storage/cSharedHTML.h"

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
    // Of a file that was cut short, the last piece is a task too, and what lies around the tags is no part of
    // it.
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

}  // namespace

TaskFile::TaskFile(FileSystem& files, const std::string& folder)
    : files_(&files),
      path_(JoinPath(folder, kTaskFile)),
      plainPath_(WithExtension(path_, kOldExtension)),
      keptPath_(WithExtension(path_, ".bak")) {}

std::string TaskFile::FaultOf(std::string_view task) {
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
    return {plain, ReadFileOrEmpty(*files_, plain ? plainPath_ : path_)};
}

std::vector<std::string> TaskFile::Load() {
    known_ = Read();
    return known_->plain ? LinesOf(known_->text) : TasksOf(known_->text);
}

bool TaskFile::Changed() const { return known_ != Read(); }

void TaskFile::Save(const std::vector<std::string>& tasks) {
    // Somebody's own editing may hold more than was understood of it.
    const bool foreign =
        known_ && !known_->plain && !known_->text.empty() && known_->text != FileText(TasksOf(known_->text));
    if (foreign) WriteWholeFile(*files_, keptPath_, known_->text);
    Content content{false, FileText(tasks)};
    WriteWholeFile(*files_, path_, content.text);
    known_ = std::move(content);
}

}  // namespace kaz
