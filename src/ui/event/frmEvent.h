#pragma once

#include "core/Application.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "resources/resource.h"
#include "storage/EventOperations.h"
#include "ui/event/ActionControls.h"
#include "ui/event/AlarmControls.h"
#include "ui/event/DescriptionControls.h"
#include "ui/event/RecurrenceTabs.h"
#include "ui/event/ShareControls.h"

#include <memory>
#include <string>

namespace kaz {

// The dialog in which one event is made or changed. It works on a copy of the event: nothing outside is
// touched before the caller takes the result.
class frmEvent : public Form {
public:
    // An event without a code is a new one. The application outlives the form.
    frmEvent(std::unique_ptr<kaz::Window> window, Application& application, clsEvent event, EditMode mode);

    // Fills every control from the event.
    void CopyDataToForm();
    // Checks the controls and copies them into the event. What is wrong is told in a message box; the field
    // at fault gets the keyboard, and the event stays as it was.
    bool CopyFormToData();
    // Leaves only the frame for sharing and the two buttons.
    void ConvertToPickShareMode();
    // Enables the controls that depend on a tick.
    void SetupRelatedItems();

    // Runs the dialog until the user saves (true) or gives up.
    bool ShowModal();
    const clsEvent& Event() const { return event_; }
    void Form_Unload() override;

private:
    void Form_Load();
    void cmdSave_Click();
    void cmdAbort_Click();
    void cmdMore_Click();
    void chkTimed_Click();
    void txtTime_Change();
    void txtTime_LostFocus();
    void chkMakeNoise_Click();
    void chkRunFile_Click();
    void chkEmailTo_Click();
    void chkShared_Click();
    void cmdPickWav_Click();
    void cmdPickFile_Click();
    void TabStrip1_Click();
    void lblMonthlyStartDate_Click();
    void lblWeeklyStartDate_Click();
    void lblDailyStartDate_Click();

    void ListenToRule();
    void ListenToPages();
    void PrepareNumbers();
    void ShowNew();
    void CopyFields(clsEvent& event);
    void AskAboutDoubts(const clsEvent& event) const;
    void TellFailure();
    bool IsChanged() const;
    void PickStartDate(IntervalFrame& frame);
    void ShowPreview();
    clsEvent AsTyped() const;
    // Those of the event as it is typed.
    EventExtras ExtrasFor(const clsEvent& event) const;
    DateStyle Style() const { return {datePattern_, app_.platform.locale.Data()}; }

    Application& app_;
    clsEvent event_;
    EditMode mode_;
    EventExtras extras_;
    RecurrenceRule extrasRule_;  // for which they were chosen
    std::string entered_;        // when it was opened
    bool repeats_ = true;        // under the tabs of rules
    bool inTime_ = false;        // the keyboard is in the box of the time
    std::string datePattern_;
    DescriptionControls description_;
    AlarmControls alarm_;
    ActionControls actions_;
    ShareControls share_;
    RecurrenceTabs tabs_;
    ListControl cmbLayers{window(), IDC_cmbLayers};
    TextBox txtDaysWarning{window(), IDC_txtDaysWarning};
    CheckBox optRepeat{window(), IDC_optRepeat};
    CheckBox optShowOnce{window(), IDC_optShowOnce};
    Label lblMore{window(), IDC_lblMore};
    Label lblPreview{window(), IDC_lblPreview};
    Label lblPreviewWarning{window(), IDC_lblPreviewWarning};
};

}  // namespace kaz
