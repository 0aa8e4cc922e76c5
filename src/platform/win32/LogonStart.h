#pragma once

#include <string>

namespace kaz {

// The entry by which Windows starts a program on a data folder when this user logs on: of HKEY_CURRENT_USER,
// so that it needs no rights, and one for each folder, since each has reminders of its own.
class LogonStart {
public:
    LogonStart(std::wstring program, const std::string& folder);

    // The program that is running now.
    static std::wstring RunningProgram();
    // Whether it is one that can be started so; any other has only loaded the component.
    bool IsHost() const;

    // False also where the entry is there, but for another program, or the user has switched it off in the
    // Task Manager.
    bool IsOn() const;
    // Throws PermissionDenied when the system refuses, InvalidCall for a command longer than Windows starts.
    void Turn(bool on) const;

private:
    std::wstring program_;
    std::wstring entry_;
    std::wstring command_;
};

}  // namespace kaz
