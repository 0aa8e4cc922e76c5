#include "hosts/kaz2/MailProgram.h"

#include <windows.h>

#include <algorithm>
#include <iterator>
#include <string>

namespace kaz {

namespace {

const HKEY kRoots[] = {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE};
const std::wstring kClients = L"Software\\Clients\\Mail";

bool HasValue(HKEY root, const std::wstring& key, const wchar_t* value) {
    return RegGetValueW(root, key.c_str(), value, RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND,
                        nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

// The name under which the default program is registered; the user's choice goes before the machine's.
std::wstring DefaultClient() {
    for (const HKEY root : kRoots) {
        wchar_t name[256] = L"";
        DWORD size = sizeof name;
        if (RegGetValueW(root, kClients.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, name, &size) ==
                ERROR_SUCCESS &&
            *name)
            return name;
    }
    return L"";
}

}  // namespace

bool MailProgramTakesMails() {
    const std::wstring client = DefaultClient();
    if (client.empty()) return false;
    const std::wstring key = kClients + L"\\" + client;
    // Three ways to say which DLL does it; the last one stands for an installation on demand.
    return std::ranges::any_of(kRoots, [&](HKEY root) {
        return HasValue(root, key, L"DLLPath") || HasValue(root, key, L"DLLPathEx") ||
               HasValue(root, key, L"MSIComponentID");
    });
}

}  // namespace kaz
