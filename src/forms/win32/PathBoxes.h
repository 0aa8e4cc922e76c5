#pragma once

#include <optional>
#include <string>

namespace kaz {

// The system's own boxes for files and folders. Nothing when the user cancelled.

// `filter` in pairs such as L"WAV files (*.wav)|*.wav".
std::optional<std::string> AskForFile(const std::wstring& title, std::wstring filter);
// For a file to be written; `name` is proposed, and an existing file is asked about.
std::optional<std::string> AskWhereToSave(const std::wstring& title, std::wstring filter,
                                          const std::wstring& name);
std::optional<std::string> AskForFolder(const std::wstring& title);

}  // namespace kaz
