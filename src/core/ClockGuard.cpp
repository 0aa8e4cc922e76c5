#include "core/ClockGuard.h"

#include "base/DateText.h"
#include "core/Application.h"
#include "core/JournalScope.h"
#include "core/KeptCopies.h"
#include "core/MovedEvents.h"
#include "platform/Files.h"
#include "support/Names.h"

#include <array>
#include <utility>
#include <vector>

namespace kaz {

namespace {

constexpr std::string_view kLastTick = "LastTick";
constexpr std::string_view kDoubtSince = "ClockDoubtSince";
constexpr std::string_view kDoubtTick = "ClockDoubtTick";
// The last good tick of the machine that is in doubt, which names the files as they were. Another machine on
// the same folder goes on writing its own as the last tick.
constexpr std::string_view kDoubtAfter = "ClockDoubtAfter";
constexpr std::string_view kDateNotice = "Date of this computer";
constexpr std::string_view kPutBack = "Events put back";

constexpr double kFarAhead = 45;  // days; fewer are an ordinary absence
// Two places on earth are up to 26 hours apart, and a traveller's clock goes back by as much at once.
constexpr double kFarBack = 26.0 / 24;
// A date that a week of use has not corrected is taken for right.
constexpr int kLongEnough = 7;
constexpr double kHour = 0.999 / 24;  // of days, less what is lost in fractions

double DaysBetween(DateValue from, DateValue to) { return to.Serial() - from.Serial(); }

bool Follows(DateValue before, DateValue now) {
    const double days = DaysBetween(before, now);
    return days >= -kFarBack && days <= kFarAhead;
}

// The events of a copy, nothing when it cannot be read. One that was never made had no events to keep.
std::optional<std::vector<clsEvent>> Kept(Application& app, const std::string& path) {
    if (!FileExists(app.platform.files, path)) return std::vector<clsEvent>{};
    clsDbXml kept(app.Storage());
    kept.LoadDB(path);
    if (kept.ReadFault()) return std::nullopt;
    return kept.ChangeEvents([](std::vector<clsEvent>& events) { return std::move(events); });
}

KeptCopies Copies(Application& app) {
    return {app.platform.files, app.log, JoinPath(app.runtimePath, kBackupFolder), "before the date changed"};
}

}  // namespace

bool ClockGuard::HasEverTicked(const cSHAREDSettings& settings) {
    return settings.IsSettingPresent(kLastTick);
}

bool ClockGuard::Look() noexcept {
    bool ended = false;
    ErrorTrap trap(app_.log, "Look", "ClockGuard");
    trap([&] {
        if (!app_.events || !app_.expired) return;
        // What the date does to events is seen when they are.
        if (app_.events->ReadFault() || app_.expired->ReadFault()) return;
        Load();
        const bool wasInDoubt = doubt_.has_value();
        Judge(app_.platform.clock.Now());
        ended = wasInDoubt && !doubt_;
    });
    return ended;
}

void ClockGuard::Load() {
    if (std::exchange(loaded_, true)) return;
    const auto time = [&](std::string_view name) {
        return RecogniseDate(app_.settings.TextOr(name, ""), app_.platform.locale.Data());
    };
    lastGood_ = time(kLastTick);
    const auto since = time(kDoubtSince);
    const auto last = time(kDoubtTick);
    if (lastGood_ && since && last) {
        doubt_ = {*since, *last};
        if (const auto after = time(kDoubtAfter)) lastGood_ = after;
    }
    written_ = doubt_ ? doubt_->last : lastGood_.value_or(DateValue());
    if (doubt_) Tell();
}

void ClockGuard::Judge(DateValue now) {
    if (!lastGood_ || (!doubt_ && Follows(*lastGood_, now))) {
        lastGood_ = now;
    } else if (!doubt_) {
        BeginDoubt(now);
    } else if (IsRightAgain(now)) {
        PutBack(true);
        EndDoubt(now);
    } else if (!Follows(doubt_->last, now)) {
        // A third date. The files of the good time are kept already.
        doubt_ = {now, now};
        Tell();
    } else {
        KeepFiles();
        doubt_->last = now;
        if (now.Day() - doubt_->since.Day() >= kLongEnough) EndDoubt(now);
    }
    Store();
}

// Also when it has come back from the doubtful date to any time after the last good one: of the two, that one
// was wrong. Should this be a mistake, an event that goes back is only moved on once more.
bool ClockGuard::IsRightAgain(DateValue now) const {
    const bool notBefore = DaysBetween(*lastGood_, now) >= -kFarBack;
    return Follows(*lastGood_, now) || (notBefore && DaysBetween(doubt_->last, now) < -kFarBack);
}

void ClockGuard::BeginDoubt(DateValue now) {
    KeepFiles();
    doubt_ = {now, now};
    app_.log.LogEvent("The clock stood at " + GeneralDateText(*lastGood_, app_.platform.locale.Data()) +
                      " and is now at " + GeneralDateText(now, app_.platform.locale.Data()));
    Tell();
    Store();
    Write();
}

void ClockGuard::EndDoubt(DateValue now) {
    doubt_.reset();
    lastGood_ = now;
    app_.health.Clear(kDateNotice);
    Store();
    Write();
}

// As they were before the date changed, so only once: also when their folder comes back later.
void ClockGuard::KeepFiles() {
    if (FileExists(app_.platform.files, Copies(app_).PathOf(app_.events->DBFilename(), KeptTime()))) return;
    for (const clsDbXml* database : {app_.events.get(), app_.expired.get()})
        Copies(app_).Keep(database->DBFilename(), KeptTime());
}

std::string ClockGuard::KeptTime() const {
    return FormatDate(*lastGood_, "YYYY-MM-DD HH.NN.SS", app_.platform.locale.Data());
}

// `forGood`: the date is right, so the events stay where they are put.
void ClockGuard::PutBack(bool forGood) {
    const KeptCopies copies = Copies(app_);
    const auto events = Kept(app_, copies.PathOf(app_.events->DBFilename(), KeptTime()));
    const auto expired = Kept(app_, copies.PathOf(app_.expired->DBFilename(), KeptTime()));
    Health& health = app_.health;
    const auto tell = [&](Health::Weight weight, const std::string& text) {
        health.Tell({std::string(kPutBack), weight, text, {{"OK", [&health] { health.Clear(kPutBack); }}}});
    };
    if (!events || !expired)
        return tell(Health::Weight::Warning,
                    "Your events of before the wrong date could not be read. They are in the folder " +
                        JoinPath(app_.runtimePath, kBackupFolder) + ".");
    const JournalScope scope(app_, "putting back after a wrong date");
    MovedEvents moved(*app_.events, *app_.expired, lastGood_->DateOnly(), app_.log);
    const int count = moved.PutBack(*events, *expired, doubt_->since.DateOnly());
    app_.outcomes.PutBackTo(*lastGood_);
    if (count > 0) {
        // First the file that receives the events: a crash in between leaves them in both, never in none.
        if (app_.events->SaveDB()) app_.expired->SaveDB();
        app_.mainListIsStale = true;
    }
    app_.log.LogEvent("Events put back after a wrong date: " + std::to_string(count));
    if (count == 0 && forGood) return;
    tell(Health::Weight::Note,
         "The date of this computer was wrong. " + std::to_string(count) +
             (count == 1 ? " event is back as it was." : " events are back as they were.") +
             (forGood ? "" : " Please set the date right."));
}

void ClockGuard::DateWasWrong() noexcept {
    ErrorTrap trap(app_.log, "DateWasWrong", "ClockGuard");
    trap([&] {
        if (doubt_) PutBack(false);
    });
}

void ClockGuard::DateIsRight() noexcept {
    ErrorTrap trap(app_.log, "DateIsRight", "ClockGuard");
    trap([&] {
        if (doubt_) EndDoubt(app_.platform.clock.Now());
    });
}

void ClockGuard::Tell() {
    const LocaleData& locale = app_.platform.locale.Data();
    const std::string text = "KAZ last ran on " + GeneralDateText(lastGood_->DateOnly(), locale) +
                             ", and the date of this computer is now " +
                             GeneralDateText(doubt_->last.DateOnly(), locale) +
                             ". If that is wrong, your events can be put back as they were.";
    app_.health.Tell({std::string(kDateNotice),
                      Health::Weight::Warning,
                      text,
                      {{"The date was wrong: put my events back", [this] { DateWasWrong(); }},
                       {"The date is right", [this] { DateIsRight(); }}}});
}

void ClockGuard::NoteTick() noexcept {
    ErrorTrap trap(app_.log, "NoteTick", "ClockGuard");
    trap([&] {
        const DateValue now = app_.platform.clock.Now();
        const double since = DaysBetween(written_, now);
        const bool shown = app_.reminderWindows.TimesShown() != shownWhenWritten_;
        if (lastGood_ && (shown || since >= kHour || since < 0)) Write();
    });
}

// Into the memory, from where every save of the settings takes it along.
void ClockGuard::Store() {
    const auto text = [&](DateValue time) {
        return FormatDate(time, "YYYY-MM-DD HH:NN:SS", app_.platform.locale.Data());
    };
    app_.settings.StoreSetting(kLastTick, text(*lastGood_));
    if (doubt_) {
        app_.settings.StoreSetting(kDoubtSince, text(doubt_->since));
        app_.settings.StoreSetting(kDoubtTick, text(doubt_->last));
        app_.settings.StoreSetting(kDoubtAfter, text(*lastGood_));
    } else {
        app_.settings.DeleteSetting(kDoubtSince);
        app_.settings.DeleteSetting(kDoubtTick);
        app_.settings.DeleteSetting(kDoubtAfter);
    }
}

// Not with every tick, which would be thousands of writes a day to a stick or a synchronised folder.
void ClockGuard::Write() {
    app_.settings.SaveOnly(app_.settingsFileName,
                           std::array{kLastTick, kDoubtSince, kDoubtTick, kDoubtAfter});
    app_.runMark.Sign();
    written_ = app_.platform.clock.Now();
    shownWhenWritten_ = app_.reminderWindows.TimesShown();
}

}  // namespace kaz
