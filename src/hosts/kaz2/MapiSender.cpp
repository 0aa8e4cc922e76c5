#include "hosts/kaz2/MapiSender.h"

#include "hosts/kaz2/mail/MailAddresses.h"
#include "win32/Handles.h"
#include "win32/Text.h"

#include <windows.h>
#include <mapi.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

namespace kaz {

namespace {

// True when the user's mail program takes mails from others. Asked first, because the system answers a mail
// without such a program with a message box of its own.
bool MailProgramTakesMails();

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

// The structures of mapi.h, which has them for the code page only.
struct Recipient {
    ULONG reserved;
    ULONG kind;
    wchar_t* name;
    wchar_t* address;
    ULONG idSize;
    void* id;
};
struct Message {
    ULONG reserved;
    wchar_t* subject;
    wchar_t* text;
    wchar_t* type;
    wchar_t* dateReceived;
    wchar_t* conversation;
    FLAGS flags;
    Recipient* sender;
    ULONG recipientCount;
    Recipient* recipients;
    ULONG fileCount;
    void* files;
};
static_assert(sizeof(Recipient) == sizeof(MapiRecipDesc));
static_assert(sizeof(Message) == sizeof(MapiMessage));

using SendFunction = ULONG(WINAPI*)(LHANDLE session, ULONG_PTR window, Message* message, FLAGS flags,
                                    ULONG reserved);

ULONG Call(SendFunction send, const Mail& mail, const std::vector<std::string>& addresses) {
    std::wstring subject = ToWide(mail.subject);
    std::wstring text = ToWide(mail.text);
    std::vector<std::wstring> names;
    names.reserve(addresses.size());
    std::vector<Recipient> recipients;
    recipients.reserve(addresses.size());
    for (const std::string& address : addresses)
        names.push_back(L"SMTP:" + ToWide(address));
    // The name is the address without its kind.
    for (std::wstring& name : names)
        recipients.push_back({0, MAPI_TO, name.data() + 5, name.data(), 0, nullptr});
    Message message{};
    message.subject = subject.data();
    message.text = text.data();
    message.recipientCount = static_cast<ULONG>(recipients.size());
    message.recipients = recipients.data();
    // The program may ask for a login, but not show the mail: the user has said once that it is to go out.
    return send(0, 0, &message, MAPI_LOGON_UI, 0);
}

void Check(ULONG result) {
    switch (result) {
    case SUCCESS_SUCCESS: return;
    case MAPI_E_USER_ABORT:
        throw MailFailure{MailTrouble::Cancelled, "The mail was cancelled in the mail program."};
    case MAPI_E_LOGON_FAILURE: throw MailFailure{MailTrouble::Password, "The mail program could not log in."};
    case MAPI_E_UNKNOWN_RECIPIENT:
    case MAPI_E_AMBIGUOUS_RECIPIENT:
    case MAPI_E_BAD_RECIPTYPE:
    case MAPI_E_INVALID_RECIPS:
        throw MailFailure{MailTrouble::Recipients,
                          "The mail program does not accept an address of the mail."};
    default:
        throw MailFailure{MailTrouble::MailProgram,
                          "The mail program did not take the mail (error " + std::to_string(result) + ")."};
    }
}

}  // namespace

void MapiSender::Send(const Mail& mail, const std::stop_token&) {
    const std::vector<std::string> addresses = AddressesOf(mail.to);
    // From the system's folder only: the name is one that malware likes to use.
    const Module mapi(LoadLibraryExW(L"mapi32.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32));
    // For a mail program that knows the code page only, the system itself converts.
    const FARPROC send = mapi ? GetProcAddress(mapi.Get(), "MAPISendMailW") : nullptr;
    if (!send || !MailProgramTakesMails())
        throw MailFailure{MailTrouble::NoMailProgram,
                          "There is no mail program on this computer that takes mails from other programs. "
                          "The help says how to use a mail server instead."};
    Check(Call(reinterpret_cast<SendFunction>(reinterpret_cast<void*>(send)), mail, addresses));
}

}  // namespace kaz
