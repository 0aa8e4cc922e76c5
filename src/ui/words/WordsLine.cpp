#include "ui/words/WordsLine.h"

#include "commands/LineCommand.h"
#include "ui/fields/FieldFault.h"
#include "ui/fields/FieldReading.h"

namespace kaz {

namespace {

constexpr const char* kExamples = "Such as:  dentist tomorrow 15:30 !30   or:  pay rent every month on the "
                                  "1st #Category   or:  bins every 2 "
                                  "weeks on tuesday\r\nEnter adds it; !30 rings 30 minutes before, ~7 "
                                  "announces it 7 days ahead. F1 tells more.";

}  // namespace

void WordsLine::Prepare() {
    txtWords.MaxLength(static_cast<int>(kLongestLine));
    lblUnderstood.Text(kExamples);
}

void WordsLine::ShowUnderstood() {
    try {
        const std::string text = LineCommand(app_).LookAt(TypedText(txtWords)).text;
        lblUnderstood.Text(text.empty() ? kExamples : text);
    } catch (const FieldFault& fault) {
        lblUnderstood.Text(fault.Description());
    }
}

bool WordsLine::Enter() {
    try {
        const LineCommand::Added added = LineCommand(app_).Add(TypedText(txtWords));
        if (!added.code) {
            lblUnderstood.Text(added.told);
            return false;
        }
        txtWords.Text("");
        added_(*added.code);
        lblUnderstood.Text("Added:  " + added.told + "\r\nCtrl+Z in the list takes it back.");
        return true;
    } catch (const FieldFault& fault) {
        lblUnderstood.Text(fault.Description());
        return false;
    }
}

bool WordsLine::Empty() {
    if (window_.Text(IDC_txtWords).empty()) return false;
    txtWords.Text("");
    lblUnderstood.Text(kExamples);
    return true;
}

void WordsLine::TakeKeyboard() {
    txtWords.SetFocus();
    txtWords.HighlightText();
}

}  // namespace kaz
