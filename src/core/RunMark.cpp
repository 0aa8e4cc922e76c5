#include "core/RunMark.h"

#include "base/CaseFolding.h"
#include "base/CodePage.h"
#include "base/DateText.h"
#include "base/ErrorTrap.h"
#include "base/LocaleData.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/Files.h"
#include "support/Names.h"

namespace kaz {

namespace {

constexpr std::string_view kSignPattern = "YYYY-MM-DD HH:NN:SS";

// Paths are long and full of what a file name cannot hold.
std::string ShortNameOf(const std::string& folder) {
    return HashDigits(CaseFolding::Letters().Lower(folder));
}

std::optional<DateValue> LastSignIn(std::string_view text) {
    std::optional<DateValue> last;
    while (!text.empty()) {
        const auto end = text.find(kLineBreak);
        if (const auto sign = RecogniseDate(text.substr(0, end), LocaleData{})) last = sign;
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + kLineBreak.size());
    }
    return last;
}

}  // namespace

std::optional<RunMark::Died> RunMark::Begin(const std::string& folder) noexcept {
    std::optional<Died> died;
    Quietly([&] {
        path_ = PathFor(folder);
        held_ = files_.OpenAlone(path_);
        if (const std::string left = ReadWholeFile(files_, path_); !left.empty()) {
            died = Died{LastSignIn(left)};
            held_.reset();
            files_.Delete(path_);
            held_ = files_.OpenAlone(path_);
        }
        held_->Write(CodePage::OfSystem().Encode(folder) + std::string(kLineBreak));
    });
    return died;
}

void RunMark::Sign() noexcept {
    if (!held_) return;
    Quietly([&] {
        held_->Write(FormatDate(clock_.Now(), kSignPattern, LocaleData{}) + std::string(kLineBreak));
        held_->Flush();
    });
}

void RunMark::End() noexcept {
    if (!held_) return;
    held_.reset();
    Quietly([&] { files_.Delete(path_); });
}

// Not in the folder itself: a synchronised one would carry the mark to a machine on which nothing died, and a
// file that is kept open would hold back a stick that is to be pulled out.
std::string RunMark::PathFor(const std::string& folder) const {
    const std::string local = system_.LocalFolder();
    if (local.empty()) throw RuntimeError(ErrorNumber::PathNotFound);
    const std::string own = JoinPath(local, kApplicationName);
    files_.CreateFolder(own);
    return JoinPath(own, "Running " + ShortNameOf(folder) + ".txt");
}

}  // namespace kaz
