#include "platform/win32/LogonStart.h"

#include "base/RuntimeError.h"
#include "win32/Text.h"

#include <windows.h>

#include <utility>

namespace kaz {

namespace {

constexpr wchar_t kRun[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
// What the Task Manager notes of the entries there: an odd number at the start for one that is switched off.
constexpr wchar_t kApproved[] =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\StartupApproved\\Run";
constexpr wchar_t kHost[] = L"KAZ2.exe";
constexpr std::size_t kLongestCommand = 260;
constexpr std::size_t kLongestPath = 32768;

std::wstring Quoted(const std::wstring& path) {
    // A backslash before the closing quotation mark would make it a part of the name.
    return L"\"" + path + (path.ends_with(L'\\') ? L"\\\"" : L"\"");
}

bool IsSwitchedOff(const std::wstring& entry) {
    BYTE state[32]{};
    DWORD size = sizeof state;
    return RegGetValueW(HKEY_CURRENT_USER, kApproved, entry.c_str(), RRF_RT_REG_BINARY, nullptr, state,
                        &size) == ERROR_SUCCESS &&
           (state[0] & 1) != 0;
}

}  // namespace

LogonStart::LogonStart(std::wstring program, const std::string& folder)
    : program_(std::move(program)),
      entry_(L"KAZ " + ToWide(folder)),
      command_(Quoted(program_) + L" " + Quoted(ToWide(folder))) {}

std::wstring LogonStart::RunningProgram() {
    std::wstring path(kLongestPath, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

bool LogonStart::IsHost() const {
    const std::wstring name = program_.substr(program_.find_last_of(L'\\') + 1);
    return CompareStringOrdinal(name.c_str(), -1, kHost, -1, TRUE) == CSTR_EQUAL;
}

bool LogonStart::IsOn() const {
    std::wstring text(kLongestCommand + 1, L'\0');
    auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (RegGetValueW(HKEY_CURRENT_USER, kRun, entry_.c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &size) !=
        ERROR_SUCCESS)
        return false;
    return CompareStringOrdinal(text.c_str(), -1, command_.c_str(), -1, TRUE) == CSTR_EQUAL &&
           !IsSwitchedOff(entry_);
}

void LogonStart::Turn(bool on) const {
    if (on && command_.size() > kLongestCommand)
        throw RuntimeError(ErrorNumber::InvalidCall,
                           "the paths of the program and of its data are too long together");
    RegDeleteKeyValueW(HKEY_CURRENT_USER, kApproved, entry_.c_str());
    const auto size = static_cast<DWORD>((command_.size() + 1) * sizeof(wchar_t));
    const LSTATUS status =
        on ? RegSetKeyValueW(HKEY_CURRENT_USER, kRun, entry_.c_str(), REG_SZ, command_.c_str(), size)
           : RegDeleteKeyValueW(HKEY_CURRENT_USER, kRun, entry_.c_str());
    if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND)
        throw RuntimeError(ErrorNumber::PermissionDenied);
}

}  // namespace kaz
