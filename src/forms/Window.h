#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kaz {

class DayGrid;
class ReportList;

// What a window tells its form. `control` is the id of the control, timer, menu
// item or accelerator; 0 is the window.
enum class Raised {
    Load,         // the window was made; its controls can be filled
    Click,        // button, check box, menu item, toolbar button, accelerator
    DoubleClick,  // list
    Change,       // text of an edit or a combo's edit
    Select,       // selection of a list, combo or tab strip
    Focus,        // the control got the keyboard
    Timer,
    Resize,
    CloseBox,     // the user's own close: box, Alt+F4, or Escape, when `detail` is kByEscape; nothing is
                  // closed unless the form does it
    SessionEnd,   // the system is ending; the last chance to save
    ColumnClick,  // report list header; `detail` is the column from 0
    HeaderMenu,   // right click on the header of a report list; the pointer is where the menu goes
    RightClick,   // report list or window; the pointer is where the menu goes
    DpiChanged,
    Resumed,       // the computer woke up
    ClockChanged,  // somebody, or the system, has set the clock
    TrayMouse,     // the mouse on the tray icon; `detail` is the system's message code
    TrayLost,      // the shell has started anew, without the tray icon
    Activated,     // the user came to the window, or back to it; `detail` is kByMouse when by a click on it
    Wheel,         // the mouse wheel over the window; `detail` is the clicks, positive away from the user
    Leave,         // a text box has lost the keyboard
    Enter,         // the Enter key in a text box of a window without a default button
    HotKey,        // the key of SetHotKey, wherever on the computer
    Help,          // F1, wherever in the window
    LeadsOut,      // a key in a grid of days led out of it; `detail` is by how many days
};

inline constexpr int kByEscape = 1;
inline constexpr int kByMouse = 1;

class WindowListener {
public:
    virtual ~WindowListener() = default;
    // Never throws: this is the border to the window procedure.
    virtual void OnRaised(int control, Raised what, int detail) noexcept = 0;
};

enum class Activation { TakeFocus, KeepFocus };

struct WindowSize {
    int width = 0;  // in units of 1/96 inch, so that they mean the same on every screen
    int height = 0;

    bool operator==(const WindowSize&) const = default;
};

// Where a control is, from the top left of the area inside the window's frame; in units of 1/96 inch.
struct ControlPlace {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    friend constexpr bool operator==(const ControlPlace&, const ControlPlace&) = default;
};

// How pressing a text is.
enum class Tone { Note, Warning, Alarm };

enum class WindowState { Normal, Minimised, Maximised };

struct Colour {
    std::uint8_t red = 0, green = 0, blue = 0;
    bool windowText = true;  // the system's own text colour; red, green and blue do not count
    static constexpr Colour Rgb(std::uint8_t r, std::uint8_t g, std::uint8_t b) { return {r, g, b, false}; }
    friend constexpr bool operator==(const Colour&, const Colour&) = default;
};

// One button of a toolbar. Its picture is the icon resource named like the key.
struct ToolButton {
    std::string key;
    int command = 0;  // raised as Click
    std::string tooltip;
    bool startsGroup = false;
};

// A window with the controls of one template, without any word of the application in it. Control ids are
// those of resources/resource.h. A control that is not there is ignored by setters and reads as empty. Text
// is in the system's code page; reading a text with a character that the code page cannot hold throws
// InvalidCall with a plain message that names the character.
class Window {
public:
    virtual ~Window() = default;

    // The window itself.
    virtual void SetListener(WindowListener* listener) = 0;
    virtual void Show(Activation activation) = 0;
    virtual void Hide() = 0;
    virtual bool IsVisible() const = 0;
    // Above its neighbours and flashing, without taking the keyboard from what the user is typing.
    virtual void BringToFront() = 0;
    virtual void SetTopMost(bool topMost) = 0;
    virtual WindowState State() const = 0;
    virtual void SetState(WindowState state) = 0;
    virtual WindowSize Size() const = 0;
    // Keeps the window on a screen that exists now.
    virtual void SetSize(WindowSize size) = 0;
    // Sizes the area inside the frame, which holds the controls.
    virtual void SetInnerSize(WindowSize size) = 0;
    virtual WindowSize ScreenSize() const = 0;
    // What the system shows its user as the reason why this window keeps the end of the session waiting, in a
    // few words; an empty text when it does so no longer.
    virtual void SayWhySaving(const std::string& reason) = 0;
    // Runs the window modally until EndModal; returns the latter's result.
    virtual int ShowModal() = 0;
    virtual void EndModal(int result) = 0;

    // Timers tick as Raised::Timer under their id; starting one again changes its interval.
    virtual void StartTimer(int timer, int milliseconds) = 0;
    virtual void StopTimer(int timer) = 0;

    // Any control; id 0 is the window (its caption).
    virtual std::string Text(int control) const = 0;
    virtual void SetText(int control, const std::string& text) = 0;
    virtual bool Checked(int control) const = 0;
    virtual void SetChecked(int control, bool checked) = 0;
    virtual bool Enabled(int control) const = 0;
    virtual void SetEnabled(int control, bool enabled) = 0;
    virtual bool ControlVisible(int control) const = 0;
    virtual void SetControlVisible(int control, bool visible) = 0;
    virtual ControlPlace Place(int control) const = 0;
    virtual void SetPlace(int control, const ControlPlace& place) = 0;
    // The width that a button or a text needs for its words in one line; in units of 1/96 inch.
    virtual int IdealWidth(int control) const = 0;
    // Moves the upper edge of a control that follows the size of the window down by so many units of 1/96
    // inch, for something above it; it stays so when the window is sized.
    virtual void SetRoomAbove(int control, int height) = 0;
    // Shows the text in an owner-drawn text control: in a colour of its own, with an end of dots when two
    // lines are not enough, and whole in the tooltip. Screen readers say it at once.
    virtual void SetNotice(int control, const std::string& text, Tone tone) = 0;
    // All controls that take the keyboard, while the program works; afterwards they are as before, and the
    // one that had it gets it back.
    virtual void SetControlsEnabled(bool enabled) = 0;
    virtual void SetFocus(int control) = 0;
    // The control that has the keyboard, 0 when none of this window's has.
    virtual int Focused() const = 0;
    // Selects the whole text of a text box that has got the keyboard, by a click too.
    virtual void SelectText(int control) = 0;
    // The most characters that the user can type into a text box.
    virtual void LimitText(int control, int characters) = 0;
    // Lets the up and down keys count in a text box, and a pair of arrows beside it, from `least` to `most`;
    // each step is raised as a Change. What is typed may be another number.
    virtual void SetNumberRange(int control, int least, int most) = 0;

    // List boxes, combo boxes and tab strips; positions count from 0.
    virtual void SetItems(int control, const std::vector<std::string>& items) = 0;
    // Of a report list, the texts of its first column.
    virtual std::vector<std::string> Items(int control) const = 0;
    virtual int Selected(int control) const = 0;  // -1 when none
    virtual void Select(int control, int position) = 0;
    virtual std::vector<int> Selection(int control) const = 0;
    virtual void SetSelection(int control, const std::vector<int>& positions) = 0;

    virtual ReportList& Report(int control) = 0;
    virtual DayGrid& Grid(int control) = 0;
    // Shows a pop-up menu of the resources at the pointer (or at the focus, for the keyboard); the chosen
    // item is raised as Click.
    virtual void ShowMenu(int menu) = 0;
    // What a command is called in the window's menus, with its key behind a tab, and whether it can be chosen
    // there; from now on. "&" stands before the access key, "&&" for itself.
    virtual void SetCommand(int command, const std::string& text, bool enabled) = 0;
    // Whether the menus mark the command as chosen, from now on.
    virtual void MarkCommand(int command, bool marked) = 0;
    // Shows it beneath a button of the window's toolbar, or beneath any other control, which has no command.
    virtual void ShowMenuUnder(int control, int command, int menu) = 0;

    virtual void SetToolbar(int control, const std::vector<ToolButton>& buttons) = 0;
    // Gives the button of a command another tooltip; one that is not enabled is grey.
    virtual void SetToolButton(int control, int command, const std::string& tooltip, bool enabled) = 0;

    // Puts a text on the clipboard in the place of what is there. Throws PermissionDenied while another
    // program keeps it.
    virtual void CopyText(const std::string& text) = 0;

    // Shows an icon of the resources in the tray, or shows it again with another tip of at most 127
    // characters or as another one. It goes with the window. Throws InternalError when the shell takes no
    // icon.
    virtual void ShowTrayIcon(const std::string& tip, int icon) = 0;
    virtual void HideTrayIcon() = 0;
    // Says at the icon a sentence or two, at most 255 characters, for some seconds. Nothing without an icon.
    virtual void ShowBalloon(const std::string& title, const std::string& text) = 0;

    // Has a key of the whole computer, such as "Ctrl+Alt+K", raise HotKey in place of the one before; an
    // empty text has none. False for one that another program has, or that is none.
    virtual bool SetHotKey(const std::string& keys) = 0;

    // Has Resumed raised by a computer in connected standby too, which wakes
    // unheard by those who have not asked.
    virtual void AskForResumes() = 0;
};

}  // namespace kaz
