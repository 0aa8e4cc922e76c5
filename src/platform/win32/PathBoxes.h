#pragma once

#include <optional>
#include <string>

namespace kaz {

// The system's own boxes for files and folders. Nothing when the user cancelled.

// `filter` in pairs such as L"WAV files (*.wav)|*.wav".
std::optional<std::string> AskForFile(const std::wstring& title, std::wstring filter);
std::optional<std::string> AskForFolder(const std::wstring& title);

}  // namespace kaz
