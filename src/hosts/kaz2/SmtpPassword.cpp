#include "hosts/kaz2/SmtpPassword.h"

#include "hosts/kaz2/Utf8.h"
#include "hosts/kaz2/mail/Mail.h"

#include <windows.h>
#include <wincred.h>

#include <memory>

namespace kaz {

namespace {

struct FreeCredential {
    void operator()(CREDENTIALW* credential) const { CredFree(credential); }
};

}  // namespace

std::string SmtpPassword() {
    CREDENTIALW* found = nullptr;
    CredReadW(L"KAZ2 SMTP", CRED_TYPE_GENERIC, 0, &found);
    const std::unique_ptr<CREDENTIALW, FreeCredential> credential(found);
    if (!credential || credential->CredentialBlobSize == 0)
        throw MailFailure{MailTrouble::Password,
                          "Windows keeps no password for the mail server. Give it one with the command "
                          "cmdkey /generic:\"KAZ2 SMTP\" /user:NAME /pass"};
    return Utf8({reinterpret_cast<const wchar_t*>(credential->CredentialBlob),
                 credential->CredentialBlobSize / sizeof(wchar_t)});
}

}  // namespace kaz
