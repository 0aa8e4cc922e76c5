#include "forms/win32/Win32Printer.h"

#include "base/RuntimeError.h"
#include "forms/win32/ModalRun.h"
#include "forms/win32/Win32PrintJob.h"
#include "win32/ActivationContext.h"
#include "win32/Text.h"

#include <windows.h>
#include <cderr.h>
#include <commdlg.h>

namespace kaz {

namespace {

// What the print dialog is asked and answers, with the memory that changes hands meanwhile.
class PrintRequestBlock {
public:
    explicit PrintRequestBlock(HWND owner) {
        request_.lStructSize = sizeof request_;
        request_.hwndOwner = owner;
    }
    ~PrintRequestBlock() {
        GlobalFree(request_.hDevMode);
        GlobalFree(request_.hDevNames);
    }
    PrintRequestBlock(const PrintRequestBlock&) = delete;
    PrintRequestBlock& operator=(const PrintRequestBlock&) = delete;

    bool Run(DWORD flags) {
        request_.Flags = flags | PD_NOWARNING;
        return PrintDlgW(&request_) != FALSE;
    }
    void Turn(Orientation orientation) const {
        auto* mode = static_cast<DEVMODEW*>(GlobalLock(request_.hDevMode));
        if (!mode) return;
        mode->dmFields |= DM_ORIENTATION;
        mode->dmOrientation = orientation == Orientation::Landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
        GlobalUnlock(request_.hDevMode);
    }
    DeviceContext TakeContext() const { return DeviceContext(request_.hDC); }

private:
    PRINTDLGW request_{};
};

[[noreturn]] void ThrowDialogError(DWORD error) {
    const bool none = error == PDERR_NODEFAULTPRN || error == PDERR_NODEVICES;
    throw RuntimeError(ErrorNumber::DeviceError,
                       none ? "There is no printer. Please add one in the system's settings."
                            : "The printer cannot be used (" + std::to_string(error) + ").");
}

}  // namespace

std::unique_ptr<PrintJob> Win32Printer::Ask(const std::string& documentName, Orientation orientation) {
    const ActivationContext context(module_);
    PrintRequestBlock block(WorkWindow());
    // The default printer's own settings first, so that only the orientation differs from what the user has
    // chosen there. Without a default printer the dialog lets the user pick one.
    if (block.Run(PD_RETURNDEFAULT)) block.Turn(orientation);
    constexpr DWORD kFlags =
        PD_RETURNDC | PD_NOPAGENUMS | PD_NOSELECTION | PD_HIDEPRINTTOFILE | PD_USEDEVMODECOPIESANDCOLLATE;
    if (!block.Run(kFlags)) {
        const DWORD error = CommDlgExtendedError();
        if (error == 0) return nullptr;
        ThrowDialogError(error);
    }
    return std::make_unique<Win32PrintJob>(block.TakeContext(), ToWide(documentName));
}

}  // namespace kaz
