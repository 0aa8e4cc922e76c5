#include "hosts/kaz2/MapiSender.h"

#include "hosts/kaz2/MailProgram.h"
#include "hosts/kaz2/Utf8.h"
#include "hosts/kaz2/mail/MailAddresses.h"

#include <windows.h>
#include <mapi.h>

#include <memory>
#include <string>
#include <vector>

namespace kaz {

namespace {

struct FreeModule {
    void operator()(HMODULE module) const { FreeLibrary(module); }
};
using Module = std::unique_ptr<std::remove_pointer_t<HMODULE>, FreeModule>;

// The structures of mapi.h, which has them for one kind of characters only.
template <class Character>
struct Recipient {
    ULONG reserved;
    ULONG kind;
    Character* name;
    Character* address;
    ULONG idSize;
    void* id;
};
template <class Character>
struct Message {
    ULONG reserved;
    Character* subject;
    Character* text;
    Character* type;
    Character* dateReceived;
    Character* conversation;
    FLAGS flags;
    Recipient<Character>* sender;
    ULONG recipientCount;
    Recipient<Character>* recipients;
    ULONG fileCount;
    void* files;
};
static_assert(sizeof(Recipient<char>) == sizeof(MapiRecipDesc));
static_assert(sizeof(Message<char>) == sizeof(MapiMessage));

template <class Character>
using SendFunction = ULONG(WINAPI*)(LHANDLE session, ULONG_PTR window, Message<Character>* message,
                                    FLAGS flags, ULONG reserved);

void Convert(const std::string& text, std::wstring& converted) { converted = Wide(text); }
// What the code page does not have becomes a question mark: better than no mail.
void Convert(const std::string& text, std::string& converted) {
    const std::wstring wide = Wide(text);
    converted.resize(4 * wide.size());
    const int size =
        WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()), converted.data(),
                            static_cast<int>(converted.size()), nullptr, nullptr);
    converted.resize(static_cast<std::size_t>(size));
}

template <class Character>
ULONG Call(FARPROC function, const Mail& mail, const std::vector<std::string>& addresses) {
    using Text = std::basic_string<Character>;
    Text subject;
    Text text;
    Convert(mail.subject, subject);
    Convert(mail.text, text);
    std::vector<Text> names(2 * addresses.size());
    std::vector<Recipient<Character>> recipients;
    for (std::size_t index = 0; index < addresses.size(); ++index) {
        Text& name = names[2 * index];
        Text& address = names[2 * index + 1];
        Convert(addresses[index], name);
        Convert("SMTP:" + addresses[index], address);
        recipients.push_back({0, MAPI_TO, name.data(), address.data(), 0, nullptr});
    }
    Message<Character> message{};
    message.subject = subject.data();
    message.text = text.data();
    message.recipientCount = static_cast<ULONG>(recipients.size());
    message.recipients = recipients.data();
    // The program may ask for a login, but not show the mail: the user has said once that it is to go out.
    const auto send = reinterpret_cast<SendFunction<Character>>(reinterpret_cast<void*>(function));
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
    const FARPROC wide = mapi ? GetProcAddress(mapi.get(), "MAPISendMailW") : nullptr;
    const FARPROC narrow = mapi ? GetProcAddress(mapi.get(), "MAPISendMail") : nullptr;
    if ((!wide && !narrow) || !MailProgramTakesMails())
        throw MailFailure{MailTrouble::NoMailProgram,
                          "There is no mail program on this computer that takes mails from other programs. "
                          "The help says how to use a mail server instead."};
    Check(wide ? Call<wchar_t>(wide, mail, addresses) : Call<char>(narrow, mail, addresses));
}

}  // namespace kaz
