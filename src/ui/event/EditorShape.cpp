#include "ui/event/EditorShape.h"

#include "resources/resource.h"

#include <algorithm>

namespace kaz {

namespace {

// In units of 1/96 inch.
constexpr int kMargin = 50;  // around everything, both sides together
constexpr int kGap = 12;     // between the frame and the buttons

constexpr int kSharing[] = {IDC_FrameShared, IDC_chkShared, IDC_chkSpecificShare, IDC_lblUsers, IDC_lstUsers};
// What the program writes, and where a user only looks.
constexpr int kNotEntered[] = {IDC_lblMore,   IDC_lblPreview, IDC_lblPreviewWarning, IDC_lblAlarmAdvice,
                               IDC_TabStrip1, IDC_optRepeat,  IDC_optShowOnce};

int RightOf(const Window& window, int control) {
    const ControlPlace place = window.Place(control);
    return place.left + place.width;
}

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
    for (const int control : kSharing) {
        MoveBy(window, control, kMargin / 2 - before.left, kMargin / 2 - before.top);
        window.SetControlVisible(control, true);
    }
    const ControlPlace frame = window.Place(IDC_FrameShared);
    const ControlPlace save = window.Place(IDC_cmdSave);
    const ControlPlace abort = window.Place(IDC_cmdAbort);
    // The buttons are wider than the frame, both together.
    const int width = std::max(frame.width, abort.left + abort.width - save.left);
    for (const int button : {IDC_cmdSave, IDC_cmdAbort}) {
        MoveBy(window, button, frame.left + width - (abort.left + abort.width),
               frame.top + frame.height + kGap - abort.top);
        window.SetControlVisible(button, true);
    }
    for (const int control : {IDC_FrameShared, IDC_lstUsers}) {
        ControlPlace place = window.Place(control);
        place.width += width - frame.width;
        window.SetPlace(control, place);
    }
    window.SetInnerSize({width + kMargin, frame.top + frame.height + kGap + abort.height + kMargin / 2});
}

void HideSharing(Window& window) {
    for (const int control : kSharing)
        window.SetControlVisible(control, false);
    WindowSize size = window.Size();
    size.width -= RightOf(window, IDC_FrameShared) - RightOf(window, IDC_TabStrip1);
    window.SetSize(size);
}

std::string EnteredIn(const Window& window) {
    std::string all;
    for (int control = IDC_frmEventFirst; control <= IDC_frmEventLast; ++control) {
        if (std::ranges::find(kNotEntered, control) != std::end(kNotEntered)) continue;
        all.append(window.Text(control)).append(window.Checked(control) ? "\x01" : "\x02");
        for (const int position : window.Selection(control))
            all.append(std::to_string(position)).append(",");
    }
    return all;
}

}  // namespace kaz
