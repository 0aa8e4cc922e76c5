#pragma once

#include <string>

namespace kaz {

// The folder that the component is started on: the one that was asked for; else the program's own when it
// holds "Kaz.ini" or a file "portable" (a USB stick); else "KAZ" in the user's roaming application data. A
// missing folder is created in a folder that exists: a wrong drive is told, not turned into an empty list of
// events. Full path, without trailing backslash unless it is a drive's root. Throws StartFailure.
std::wstring ChooseDataFolder(const std::wstring& asked);

// The folder that the program lies in, without trailing backslash unless it is a drive's root.
std::wstring ProgramFolder();

// Puts the alarm sound that the program ships with into the folder, when there is none yet.
void ProvideAlarmSound(const std::wstring& folder);

// `folder` and `name` with one backslash between them.
std::wstring InFolder(const std::wstring& folder, const wchar_t* name);

}  // namespace kaz
