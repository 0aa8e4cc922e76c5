#include "ui/event/ShareLayout.h"

#include "resources/resource.h"

namespace kaz {

namespace {

// In units of 1/96 inch.
constexpr int kMargin = 50;  // around everything, both sides together
constexpr int kGap = 12;     // between the frame and the buttons

void MoveBy(Window& window, int control, int right, int down) {
    ControlPlace place = window.Place(control);
    place.left += right;
    place.top += down;
    window.SetPlace(control, place);
}

}  // namespace

void ShowSharingOnly(Window& window) {
    for (int control = IDC_frmEventFirst; control <= IDC_frmEventLast; ++control)
        window.SetControlVisible(control, false);

    const ControlPlace before = window.Place(IDC_FrameShared);
    for (const int control :
         {IDC_FrameShared, IDC_chkShared, IDC_chkSpecificShare, IDC_lblUsers, IDC_lstUsers}) {
        MoveBy(window, control, kMargin / 2 - before.left, kMargin / 2 - before.top);
        window.SetControlVisible(control, true);
    }
    const ControlPlace frame = window.Place(IDC_FrameShared);
    const ControlPlace abort = window.Place(IDC_cmdAbort);
    for (const int button : {IDC_cmdSave, IDC_cmdAbort}) {
        MoveBy(window, button, frame.left + frame.width - (abort.left + abort.width),
               frame.top + frame.height + kGap - abort.top);
        window.SetControlVisible(button, true);
    }
    window.SetInnerSize(
        {frame.width + kMargin, frame.top + frame.height + kGap + abort.height + kMargin / 2});
}

}  // namespace kaz
