// What a mail program brings along so that other programs can send mail: here one that writes
// each mail into the file that KAZ_TEST_MAILS names, as UTF-8. The text says what is to
// happen: "stuck", "cancel", or nothing.

#include <windows.h>
#include <mapi.h>

#include <cstdio>
#include <cwchar>
#include <string>

namespace {

struct Recipient {
    ULONG reserved, kind;
    wchar_t *name, *address;
    ULONG idSize;
    void* id;
};
struct Message {
    ULONG reserved;
    wchar_t *subject, *text, *type, *dateReceived, *conversation;
    ULONG flags;
    Recipient* sender;
    ULONG recipientCount;
    Recipient* recipients;
};

std::string Utf8(const wchar_t* text) {
    char bytes[1000];
    return WideCharToMultiByte(CP_UTF8, 0, text, -1, bytes, sizeof bytes, nullptr, nullptr) ? bytes : "?";
}

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the name that the system asks for
extern "C" __declspec(dllexport) ULONG WINAPI
    MAPISendMailW(LHANDLE, ULONG_PTR, const Message* message, ULONG, ULONG) {
    if (std::wcsstr(message->text, L"stuck")) Sleep(INFINITE);
    if (std::wcsstr(message->text, L"cancel")) return MAPI_E_USER_ABORT;
    std::string line;
    for (ULONG index = 0; index < message->recipientCount; ++index)
        line += Utf8(message->recipients[index].address) + " ";
    line += Utf8(message->subject) + ": " + Utf8(message->text) + "\n";
    std::FILE* const file = _wfopen(_wgetenv(L"KAZ_TEST_MAILS"), L"ab");
    if (!file) return MAPI_E_FAILURE;
    std::fputs(line.c_str(), file);
    std::fclose(file);
    return SUCCESS_SUCCESS;
}
