#include "hosts/kaz2/SmtpPassword.h"

#include "hosts/kaz2/mail/Mail.h"

#include <windows.h>
#include <wincred.h>

#include <memory>

namespace kaz {

namespace {

struct FreeCredential {
    void operator()(CREDENTIALW* credential) const {
        SecureZeroMemory(credential->CredentialBlob, credential->CredentialBlobSize);
        CredFree(credential);
    }
};

}  // namespace

Secret SmtpPassword() {
    CREDENTIALW* found = nullptr;
    CredReadW(L"KAZ2 SMTP", CRED_TYPE_GENERIC, 0, &found);
    const std::unique_ptr<CREDENTIALW, FreeCredential> credential(found);
    if (!credential || credential->CredentialBlobSize == 0)
        throw MailFailure{MailTrouble::Password,
                          "Windows keeps no password for the mail server. Give it one with the command "
                          "cmdkey /generic:\"KAZ2 SMTP\" /user:NAME /pass"};
    const int length = static_cast<int>(credential->CredentialBlobSize / sizeof(wchar_t));
    const int most = 3 * length;
    Secret password(static_cast<std::size_t>(most));
    WideCharToMultiByte(CP_UTF8, 0, reinterpret_cast<const wchar_t*>(credential->CredentialBlob), length,
                        password.Data(), most, nullptr, nullptr);
    return password;
}

}  // namespace kaz
