#include "storage/SideFile.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/Files.h"
#include "platform/SafeFileWriter.h"
#include "storage/SideExtras.h"
#include "storage/WholeTexts.h"

#include <algorithm>
#include <utility>

namespace kaz {

namespace {

constexpr std::string_view kKind = "KAZ side ";
constexpr std::string_view kHead = "KAZ side 1";
// A file without it has been cut: what is missing in it has not been removed by anybody.
constexpr std::string_view kEnd = "end";
constexpr std::string_view kAdded = "+";
constexpr std::string_view kRemoved = "-";

// A merge by another program may have left its own line breaks.
std::string_view WithoutReturn(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

std::string TextOf(std::string_view head, const SideFile::Lines& lines, const std::set<std::string>& odd) {
    std::string text = std::string(head).append(kLineBreak);
    for (const SideLine& line : lines)
        text.append(line.Text()).append(kLineBreak);
    for (const std::string& line : odd)
        text.append(line).append(kLineBreak);
    return text.append(kEnd).append(kLineBreak);
}

struct Content {
    std::string head;
    SideFile::Lines lines;
    std::set<std::string> odd;
    bool whole = false;
};

Content ContentOf(std::string_view text) {
    Content content;
    if (!text.starts_with(kKind) || !IsText(text))
        throw RuntimeError(ErrorNumber::TypeMismatch, "The file is no side file");
    for (const std::string_view piece : Split(text, "\n")) {
        const std::string_view line = WithoutReturn(piece);
        if (line.empty()) continue;
        content.whole = line == kEnd;
        if (content.head.empty())
            content.head = line;
        else if (auto parsed = SideLine::Parse(line))
            content.lines.insert(std::move(*parsed));
        else if (line != kEnd && !line.starts_with(kKind))
            content.odd.emplace(line);
    }
    return content;
}

}  // namespace

std::string SideFile::PathFor(std::string_view eventFile) { return WithExtension(eventFile, ".side"); }

void SideFile::Open(const std::string& path) {
    path_ = path;
    lines_.clear();
    saved_.clear();
    odd_.clear();
    head_ = kHead;
    date_.reset();
    looked_ = wasRead_ = wasThere_ = isThere_ = false;
    fault_.reset();
    told_.clear();
    ++version_;
    Refresh();
}

bool SideFile::Refresh() {
    if (path_.empty()) return false;
    const unsigned before = version_;
    try {
        Read();
        fault_.reset();
        told_.clear();
    } catch (...) {
        Failed("Refresh");
        // The next look tries again.
        looked_ = false;
    }
    return version_ != before;
}

void SideFile::Read() {
    const auto date = files_.ModificationTime(path_);
    if (looked_ && date == date_) return;
    if (!date && files_.Kind(path_) == PathKind::Missing) {
        if (!FolderExists(files_, FolderOf(path_))) throw RuntimeError(ErrorNumber::PathNotFound);
        Vanished();
    } else {
        const std::string text = ReadWholeFile(files_, path_);
        try {
            TakeIn(text);
        } catch (const RuntimeError&) {
            PutDamagedAside();
            Vanished();
            TakeBackup();
        }
    }
    if (!wasRead_) wasThere_ = isThere_;
    date_ = date;
    looked_ = wasRead_ = true;
}

// The memory is the last good copy.
void SideFile::Vanished() {
    saved_.clear();
    isThere_ = false;
}

void SideFile::PutDamagedAside() {
    const std::string aside = WithExtension(path_, " (damaged).side");
    log_.LogEvent(path_ + " is damaged, and is kept as " + aside);
    files_.Replace(path_, aside);
}

void SideFile::TakeBackup() {
    const std::string text = backup_ && lines_.empty() ? backup_() : std::string();
    if (CountIn(text) == 0) return;
    lines_ = ContentOf(text).lines;
    ++version_;
    log_.LogEvent(std::to_string(lines_.size()) + " entries of it are taken from a backup");
}

std::size_t SideFile::CountIn(std::string_view text) {
    try {
        const Content content = ContentOf(text);
        return content.whole ? content.lines.size() + 2 : 0;
    } catch (const RuntimeError&) {
        return 0;
    }
}

void SideFile::TakeIn(std::string_view text) {
    Content content = ContentOf(text);
    Lines merged = content.lines;
    for (const SideLine& line : lines_)
        if (!content.whole || !saved_.contains(line)) merged.insert(line);
    for (const SideLine& line : saved_)
        if (!lines_.contains(line)) merged.erase(line);
    for (const std::string& line : content.odd)
        if (odd_.insert(line).second)
            log_.LogEvent("Not understood in " + path_ + ": " + Beginning(line, 200));
    if (!content.whole) log_.LogEvent(path_ + " has no end, and is taken for cut");
    head_ = std::move(content.head);
    saved_ = std::move(content.lines);
    isThere_ = content.whole;
    if (merged != lines_) {
        lines_ = std::move(merged);
        ++version_;
    }
    savedVersion_ = lines_ == saved_ ? version_ : version_ - 1;
}

void SideFile::Add(SideLine line) {
    if (lines_.insert(std::move(line)).second) ++version_;
}

void SideFile::Remove(const SideLine& line) {
    if (lines_.erase(line) > 0) ++version_;
}

std::vector<SideLine> SideFile::Of(std::string_view verb, const SideKey& key) const {
    const auto [first, last] = lines_.equal_range(SideGroup{verb, key});
    return {first, last};
}

std::vector<SideLine> SideFile::OfCode(const std::string& code) const {
    std::vector<SideLine> found;
    // They are in the order of their verbs, of which there are few.
    for (auto verb = lines_.begin(); verb != lines_.end();) {
        auto line = lines_.lower_bound({verb->verb, {std::string(kOwnEvents), code, ""}, std::nullopt, ""});
        for (; line != lines_.end() && line->verb == verb->verb && line->key.file == kOwnEvents &&
               line->key.code == code;
             ++line)
            found.push_back(*line);
        verb = lines_.lower_bound({verb->verb + '\0', {}, std::nullopt, ""});
    }
    return found;
}

void SideFile::Put(const clsEvent& event, const clsEvent* before) {
    const std::vector<SideLine> old = OfCode(event.IDCode);
    const std::vector<SideLine> extras = ExtraLines(event, kOwnEvents);
    if (old.empty() && extras.empty()) return;
    const std::string check = CheckOf(event);
    const std::string checkBefore = before ? CheckOf(*before) : check;
    Lines wanted(extras.begin(), extras.end());
    for (SideLine line : old) {
        const bool isForeign = IsWholeText(line) && WholeTextFor(event, line) == WholeText::Foreign;
        if (IsExtra(line) && !isForeign) continue;
        if (line.key.check == checkBefore) line.key.check = check;
        wanted.insert(std::move(line));
    }
    for (const SideLine& line : old)
        if (!wanted.contains(line)) Remove(line);
    for (const SideLine& line : wanted)
        Add(line);
}

void SideFile::GiveExtras(std::vector<clsEvent>& events) const {
    kaz::GiveExtras(events, lines_, kOwnEvents, [this](const SideLine& line) {
        if (toldLeft_.insert(line).second)
            log_.LogEvent("The whole text in " + path_ + " for the event " + line.key.code +
                          " is left out, since the event has another text by now");
    });
}

bool SideFile::EventsAreThere() const { return FileExists(files_, WithExtension(path_, ".xml")); }

bool SideFile::HasUnsaved() const {
    if (path_.empty()) return false;
    if (isThere_ && version_ == savedVersion_) return false;
    return lines_ != saved_ || (wasRead_ && !isThere_ && EventsAreThere());
}

bool SideFile::Save() {
    if (path_.empty()) return true;
    Refresh();
    if (!HasUnsaved()) return !fault_;
    if (fault_ || !wasRead_ || !EventsAreThere()) return false;
    try {
        SafeFileWriter file(files_, path_);
        file.Write(TextOf(head_, lines_, odd_));
        file.Commit();
        date_ = file.Date();
        saved_ = lines_;
        savedVersion_ = version_;
        isThere_ = true;
        return true;
    } catch (...) {
        Failed("Save");
        return false;
    }
}

// Told once for each reason, since every tick tries again.
void SideFile::Failed(const char* procedure) {
    const ErrorInfo error = CurrentError();
    fault_ = error;
    std::string reason = procedure + std::to_string(error.number) + error.description;
    if (std::exchange(told_, reason) == reason) return;
    log_.Report(error, procedure, "SideFile");
    log_.LogEvent("Unable to read or write " + path_);
}

std::string SideFile::UnsavedText() const {
    std::string text;
    for (const SideLine& line : lines_)
        if (!saved_.contains(line)) text.append(kAdded).append(line.Text()).append(kLineBreak);
    for (const SideLine& line : saved_)
        if (!lines_.contains(line)) text.append(kRemoved).append(line.Text()).append(kLineBreak);
    return text;
}

void SideFile::TakeUnsaved(std::string_view text) {
    for (const std::string_view piece : Split(text, "\n")) {
        const std::string_view line = WithoutReturn(piece);
        const auto parsed = line.empty() ? std::nullopt : SideLine::Parse(line.substr(1));
        if (parsed && line.starts_with(kAdded)) Add(*parsed);
        if (parsed && line.starts_with(kRemoved)) Remove(*parsed);
    }
}

SideFile::Lines ReadSideLines(FileSystem& files, const std::string& path) {
    if (files.Kind(path) == PathKind::Missing) return {};
    return ContentOf(ReadWholeFile(files, path)).lines;
}

void WriteSideLines(FileSystem& files, const std::string& path, const SideFile::Lines& lines) {
    if (lines.empty() && files.Kind(path) == PathKind::Missing) return;
    const std::string text = TextOf(kHead, lines, {});
    if (files.Kind(path) == PathKind::Missing || ReadWholeFile(files, path) != text)
        WriteWholeFile(files, path, text);
}

}  // namespace kaz
