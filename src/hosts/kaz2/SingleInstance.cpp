#include "hosts/kaz2/SingleInstance.h"

#include "base/Text.h"
#include "win32/Text.h"

#include <string_view>

namespace kaz {

namespace {

constexpr DWORD kPause = 100;  // milliseconds
constexpr int kAttempts = 100;

// The folder as the file system itself names it: mapped drives, links and short names fall together.
std::wstring FinalPath(const std::wstring& folder) {
    const FileHandle handle(CreateFileW(folder.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                        OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!handle) return folder;
    std::wstring path(32768, L'\0');
    const DWORD length = GetFinalPathNameByHandleW(handle.Get(), path.data(), static_cast<DWORD>(path.size()),
                                                   FILE_NAME_NORMALIZED);
    if (length == 0 || length >= path.size()) return folder;
    path.resize(length);
    return path;
}

std::wstring NameFor(const std::wstring& folder) {
    std::wstring path = FinalPath(folder);
    CharUpperBuffW(path.data(), static_cast<DWORD>(path.size()));
    // A path may be longer than the name of a mutex, and holds backslashes, which such a name may not.
    const std::string_view bytes(reinterpret_cast<const char*>(path.data()), path.size() * sizeof path[0]);
    return L"KAZ2-" + ToWide(HashDigits(bytes));
}

}  // namespace

SingleInstance::SingleInstance(const std::wstring& folder)
    : name_(NameFor(folder)),
      mutex_(CreateMutexW(nullptr, FALSE, (L"Local\\" + name_).c_str())) {}

SingleInstance::~SingleInstance() {
    if (owned_) ReleaseMutex(mutex_.Get());
}

bool SingleInstance::IsOnly(bool silently) {
    for (int attempt = 0; mutex_ && attempt < kAttempts; ++attempt) {
        const DWORD result = WaitForSingleObject(mutex_.Get(), attempt == 0 ? 0 : kPause);
        owned_ = result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
        if (owned_) return true;
        if (OtherIsThere(silently)) return false;
    }
    // Without the mutex nothing can be told; two programs on one folder do no harm to its files.
    return !OtherIsThere(silently);
}

bool SingleInstance::WaitForEnd() {
    const DWORD result = WaitForSingleObject(mutex_.Get(), kAttempts * kPause);
    owned_ = result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
    return owned_;
}

UINT SingleInstance::ComeForwardMessage() {
    static const UINT message = RegisterWindowMessageW(L"KAZ2.ComeForward");
    return message;
}

bool SingleInstance::OtherIsThere(bool silently) const {
    const HWND window = Other();
    if (!window) return false;
    if (silently) return true;
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    // The user has just clicked for this program; the right to the foreground goes to the one that runs.
    AllowSetForegroundWindow(process);
    return PostMessageW(window, ComeForwardMessage(), 0, 0) != FALSE;
}

}  // namespace kaz
