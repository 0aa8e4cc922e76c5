#include "storage/clsSounds.h"

#include "base/CodePage.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/Files.h"

namespace kaz {

namespace {

constexpr std::string_view kDefaultSound = "alarm.wav";

std::string Entry(std::string_view id, std::string_view wavFile) {
    return std::string(id).append(",").append(wavFile);
}

std::string InFile(std::string_view text) {
    return CodePage::OfSystem().Encode(text, CodePage::Otherwise::QuestionMark);
}

}  // namespace

std::string DefaultAlarmSound(const FileSystem& files, const cSHAREDSettings& settings,
                              const std::string& applicationFolder) {
    const std::string here = JoinPath(applicationFolder, kDefaultSound);
    const std::string chosen = settings.TextOr("WavFile", here);
    const bool moved = StringsEqual(FileNameOf(chosen), kDefaultSound) && !FileExists(files, chosen) &&
                       FileExists(files, here);
    return moved ? here : chosen;
}

clsSounds::clsSounds(FileSystem& files, const cSHAREDSettings& settings, ErrorSink& errors,
                     FolderGetter applicationFolder)
    : files_(files),
      settings_(settings),
      errors_(errors),
      applicationFolder_(std::move(applicationFolder)) {}

void clsSounds::Initialise() {
    ErrorTrap(errors_, "Initialise", kModule)([&] { Load(); });
}

void clsSounds::AddorChange(std::string_view id, std::string_view wavFile) {
    ErrorTrap(errors_, "AddorChange", kModule)([&] {
        LoadOnce();
        if (std::string* line = Find(id)) {
            *line = Entry(id, wavFile);
            Save();
            return;
        }
        // Kept on purpose: a new entry goes to the end of the file only, and is
        // found after the next Initialise.
        std::string entry;
        if (appended_.empty() && !lines_.back().empty()) entry = kLineBreak;
        entry.append(Entry(id, wavFile)).append(kLineBreak);
        AppendText(files_, fileName_, InFile(entry));
        appended_ += entry;
    });
}

void clsSounds::Delete(std::string_view id) {
    ErrorTrap(errors_, "Delete", kModule)([&] {
        LoadOnce();
        std::string* line = Find(id);
        if (line == nullptr) return;
        line->clear();
        Save();
    });
}

std::string clsSounds::GetWavName(std::string_view id) {
    std::string name;
    ErrorTrap trap(errors_, "GetWavName", kModule);
    trap([&] { name = DefaultAlarmSound(files_, settings_, applicationFolder_()); });
    return OwnWavName(id).value_or(name);
}

std::optional<std::string> clsSounds::OwnWavName(std::string_view id) {
    std::optional<std::string> name;
    ErrorTrap(errors_, "GetWavName", kModule)([&] {
        LoadOnce();
        if (const std::string* line = Find(id)) name = Split(*line, ",")[1];
    });
    return name;
}

void clsSounds::LoadOnce() {
    if (!loaded_) Load();
}

// A file that cannot be read leaves the table not loaded, so that nothing is ever saved over it.
void clsSounds::Load() {
    loaded_ = false;
    fileName_ = JoinPath(settings_.TextOr("DataPath", applicationFolder_()), "EventWavs.ini");
    const std::string bytes = ReadFileOrEmpty(files_, fileName_);
    if (!IsText(bytes)) throw RuntimeError(ErrorNumber::TypeMismatch, fileName_ + " is damaged");
    const std::string text = CodePage::OfSystem().Decode(bytes);
    lines_.clear();
    for (const std::string_view line : Split(text, kLineBreak))
        lines_.emplace_back(line);
    appended_.clear();
    loaded_ = true;
}

void clsSounds::Save() {
    std::string text;
    for (std::size_t i = 0; i < lines_.size(); ++i)
        text.append(i == 0 ? std::string_view() : kLineBreak).append(lines_[i]);
    WriteWholeFile(files_, fileName_, InFile(text.append(appended_)));
}

// Kept on purpose: the last line is never looked at; in a file of our own making it is the empty text after
// the last line break.
std::string* clsSounds::Find(std::string_view id) {
    for (std::size_t i = 0; i + 1 < lines_.size(); ++i) {
        const auto parts = Split(lines_[i], ",");
        if (parts.size() > 1 && StringsEqual(parts[0], id)) return &lines_[i];
    }
    return nullptr;
}

}  // namespace kaz
