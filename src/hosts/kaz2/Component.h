#pragma once

#include "Kazlib_h.h"
#include "hosts/kaz2/LineToProgram.h"
#include "win32/ComPointer.h"

#include <windows.h>
#include <ocidl.h>

#include <string>

namespace kaz {

class HostMail;
class ListsFile;

// The component in the order in which a host must call it: created and connected, started on a folder,
// scanned, shown, shut down last.
class Component {
public:
    // Throws StartFailure when the component is missing or cannot be connected to.
    Component(ListsFile& lists, HostMail& mail);
    // Shuts it down, disconnects and lets go.
    ~Component();
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;

    // Throws StartFailure when the component cannot work on the folder, after half a minute of trying.
    void Start(const std::wstring& folder);
    // Raises the lists, and loads the main window without showing it.
    void Scan();
    void Show();
    // Stores the event that a line in words says.
    LineReply AddInWords(const std::wstring& line);
    // Saves everything; what is called afterwards does nothing.
    void ShutDown();

private:
    bool HasStarted(const std::wstring& folder);

    ComPointer<IKazComponent> component_;
    ComPointer<IConnectionPoint> events_;
    DWORD connection_ = 0;
    bool started_ = false;
};

}  // namespace kaz
