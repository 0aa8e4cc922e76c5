#include "reminders/frmMissed.h"

#include "base/DateText.h"
#include "base/Text.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Locale.h"
#include "reminders/ReminderText.h"

#include <algorithm>
#include <string>
#include <utility>

namespace kaz {

namespace {

// A line that is only a test is of no event.
OccurrenceRef NameOf(const MissedReminder& missed) {
    return missed.occurrences.empty() ? OccurrenceRef() : missed.occurrences.back();
}

void Append(std::string& note, const std::string& text) { note += (note.empty() ? "" : "; ") + text; }

}  // namespace

frmMissed::frmMissed(std::unique_ptr<Window> window, const ReminderServices& services,
                     ReminderRequests& requests)
    : Form(std::move(window), services.errors, "frmMissed"),
      services_(services),
      requests_(requests),
      again_(this->window(), services),
      rows_(this->window().Report(IDC_lstMissed)) {
    On(IDC_lstMissed, Raised::Select, "lstMissed_Click", &frmMissed::lstMissed_Click);
    On(IDC_lstMissed, Raised::DoubleClick, "lstMissed_DblClick", &frmMissed::lstMissed_DblClick);
    On(IDC_cmdMissedEdit, Raised::Click, "lstMissed_DblClick", &frmMissed::lstMissed_DblClick);
    On(IDC_cmdMissedDone, Raised::Click, "cmdDone_Click", &frmMissed::cmdDone_Click);
    On(IDC_cmdMissedToday, Raised::Click, "cmdAgainToday_Click", &frmMissed::cmdAgainToday_Click);
    On(IDC_cmdMissedAgain, Raised::Click, "cmdAgain_Click", &frmMissed::cmdAgain_Click);
    for (const int command : AgainMenu::kCommands)
        On(command, Raised::Click, "mnuAgain_Click", [this, command] { mnuAgain_Click(command); });
    On(IDC_cmdMissedRun, Raised::Click, "cmdRun_Click", &frmMissed::cmdRun_Click);
    On(IDC_cmdMissedMail, Raised::Click, "cmdMail_Click", &frmMissed::cmdMail_Click);
    On(IDC_cmdMissedAll, Raised::Click, "cmdAll_Click", &frmMissed::cmdAll_Click);
    On(IDC_cmdMissedLater, Raised::Click, "cmdLater_Click", &frmMissed::Close);
    On(0, Raised::CloseBox, "cmdLater_Click", &frmMissed::Close);
    Heading(kHeadingMissed);
    this->window()
        .Report(IDC_lstMissed)
        .SetColumns({{"Day", 110}, {"Time", 50}, {"Event", 160, true}, {"Whose", 70}, {"Note", 150}});
}

void frmMissed::Heading(const std::string& text) {
    lblHeading.Text(text);
    window().SetText(0, text);
}

void frmMissed::ShowAsTest(const std::string& heading, const std::string& line) {
    Heading(heading);
    MissedReminder missed;
    missed.text = line;
    missed.moment = services_.platform.clock.Now();
    missed.isTimed = true;
    Fill({missed});
    window().Show(Activation::KeepFocus);
}

void frmMissed::Fill(std::vector<MissedReminder> missed) {
    missed_ = std::move(missed);
    std::vector<OccurrenceRef> names;
    std::vector<TextRows::Row> rows;
    for (const MissedReminder& one : missed_) {
        names.push_back(NameOf(one));
        rows.push_back(RowOf(one));
    }
    rows_.Fill(std::move(names), std::move(rows));
    ShowButtons();
}

TextRows::Row frmMissed::RowOf(const MissedReminder& missed) const {
    const LocaleData& locale = services_.platform.locale.Data();
    std::string note;
    if (missed.count > 1) Append(note, std::to_string(missed.count) + " times");
    if (!missed.file.empty()) Append(note, "its file was not run: " + OneLine(missed.file));
    if (!missed.mail.empty()) Append(note, "its mail was not sent: " + OneLine(missed.mail));
    const DateValue day = missed.moment.DateOnly();
    return {{FormatDate(day, "DDD", locale) + " " + GeneralDateText(day, locale),
             missed.isTimed ? FormatDate(missed.moment, "HH:NN", locale) : "", OneLine(missed.text),
             missed.whose, note}};
}

void frmMissed::Appear(Activation activation) {
    if (activation == Activation::TakeFocus || !window().IsVisible()) window().Show(activation);
    window().BringToFront();
}

void frmMissed::Form_Unload() {
    closed_ = true;
    window().Hide();
}

void frmMissed::Close() { services_.openWindows.Unload(*this); }

frmMissed::Names frmMissed::Selected() const {
    const std::vector<OccurrenceRef> names = rows_.Selected();
    return {names.begin(), names.end()};
}

std::vector<MissedReminder> frmMissed::LinesOf(const Names& names) const {
    std::vector<MissedReminder> lines;
    std::copy_if(missed_.begin(), missed_.end(), std::back_inserter(lines),
                 [&](const MissedReminder& missed) { return names.contains(NameOf(missed)); });
    return lines;
}

const MissedReminder* frmMissed::Single() const {
    const auto row = rows_.Single();
    return row ? &missed_[*row] : nullptr;
}

void frmMissed::ShowButtons() {
    const bool any = !rows_.Selected().empty();
    for (Button* button : {&cmdDone, &cmdAgainToday, &cmdAgain})
        button->Enabled(any);
    const MissedReminder* single = Single();
    cmdEdit.Enabled(single != nullptr);
    cmdRun.Enabled(single && !single->file.empty());
    cmdMail.Enabled(single && !single->mail.empty());
}

void frmMissed::lstMissed_DblClick() {
    const MissedReminder* single = Single();
    if (!single || single->occurrences.empty()) return;
    const OccurrenceRef name = NameOf(*single);
    if (!requests_.eventOf(name)) {
        services_.platform.dialogs.Message("This event is not there any more.");
        return;
    }
    requests_.edit(name);
    requests_.answered();
}

void frmMissed::cmdDone_Click() { Answer(Selected()); }

void frmMissed::Answer(const Names& names) {
    std::vector<OccurrenceRef> ended;
    for (const MissedReminder& missed : LinesOf(names))
        ended.insert(ended.end(), missed.occurrences.begin(), missed.occurrences.end());
    Drop(names);
    services_.outcomes.Answer(ended);
    requests_.answered();
}

void frmMissed::cmdAgainToday_Click() {
    PutOff(LinesOf(Selected()), LaterToday(services_.platform.clock.Now()));
}

void frmMissed::cmdAgain_Click() { again_.ShowUnder(IDC_cmdMissedAgain, false); }

// The list can change while the user types a time of his own.
void frmMissed::mnuAgain_Click(int command) {
    const Names names = Selected();
    const auto choice = again_.ChoiceOf(command);
    if (!choice || closed_) return;
    again_.Keep(*choice);
    if (const auto until = choice->Until(services_.platform.clock.Now(), std::nullopt))
        PutOff(LinesOf(names), *until);
}

// What has gone from its file could not come again: it stays here.
void frmMissed::PutOff(const std::vector<MissedReminder>& lines, DateValue until) {
    Names names;
    std::vector<OccurrenceRef> asleep;
    std::vector<OccurrenceRef> ended;
    for (const MissedReminder& missed : lines) {
        if (missed.occurrences.empty()) names.insert(NameOf(missed));
        if (!requests_.eventOf(NameOf(missed))) continue;
        names.insert(NameOf(missed));
        asleep.push_back(NameOf(missed));
        ended.insert(ended.end(), missed.occurrences.begin(), missed.occurrences.end());
    }
    const bool isAnyGone = names.size() < lines.size();
    Drop(names);
    services_.outcomes.Sleep(asleep, until, ended);
    requests_.answered();
    if (isAnyGone)
        services_.platform.dialogs.Message(
            "An event that is not there any more cannot come again. Choose Done for it.");
}

void frmMissed::cmdRun_Click() {
    const MissedReminder* single = Single();
    if (!single) return;
    Do(requests_.runFile, NameOf(*single));
}

void frmMissed::cmdMail_Click() {
    const MissedReminder* single = Single();
    if (!single) return;
    Do(requests_.sendMail, NameOf(*single));
}

// What could not be done stays in the list.
void frmMissed::Do(const ReminderRequests::Done& request, const OccurrenceRef& name) {
    const std::string whyNot = request(name);
    if (whyNot.empty())
        Answer({name});
    else
        services_.platform.dialogs.Message(whyNot);
}

void frmMissed::cmdAll_Click() {
    rows_.SelectAll();
    ShowButtons();
}

// What is answered leaves at once.
void frmMissed::Drop(const Names& names) {
    std::vector<MissedReminder> left = missed_;
    std::erase_if(left, [&](const MissedReminder& missed) { return names.contains(NameOf(missed)); });
    const bool isEmpty = left.empty();
    Fill(std::move(left));
    if (isEmpty) Close();
}

}  // namespace kaz
