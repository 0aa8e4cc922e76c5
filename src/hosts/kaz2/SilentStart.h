#pragma once

#include <string>

namespace kaz {

// Whether the settings file of the folder says "SilentStart": reminders, but not the list of events. It is
// looked up here since the component has no operation that tells its settings. No file means no.
bool StartsSilently(const std::wstring& folder);

// Whether the text of a settings file says so: lines NAME,value; the last line of a name counts; true is
// TRUE or a number other than 0, as the file holds -1.
bool SaysSilentStart(const std::string& settings);

}  // namespace kaz
