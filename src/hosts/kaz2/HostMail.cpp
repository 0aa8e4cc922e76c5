#include "hosts/kaz2/HostMail.h"

#include "hosts/kaz2/DataFolder.h"
#include "hosts/kaz2/MapiSender.h"
#include "hosts/kaz2/SmtpPassword.h"
#include "hosts/kaz2/TextFile.h"
#include "hosts/kaz2/mail/SmtpSender.h"
#include "win32/Text.h"

#include <system_error>
#include <utility>

namespace kaz {

namespace {

// Throws MailFailure when they cannot be used.
MailSettings SettingsIn(const std::wstring& fileName) {
    std::optional<std::string> bytes = BytesOfFile(fileName);
    if (!bytes)
        throw MailFailure{MailTrouble::Settings, "KAZ2.ini cannot be read; perhaps another program uses it.",
                          true};
    MailSettings settings = ReadMailSettings(Utf8OfFile(std::move(*bytes)));
    if (!settings.problems.empty()) throw MailFailure{MailTrouble::Settings, settings.Problems()};
    return settings;
}

// For a user who does not want mails to go out.
class NoSender final : public MailSender {
public:
    void Send(const Mail&, const std::stop_token&) override {
        throw MailFailure{MailTrouble::Cancelled, "KAZ2.ini says that no mails are sent."};
    }
};

std::unique_ptr<MailSender> SenderFor(const std::wstring& settingsFile) {
    MailSettings settings = SettingsIn(settingsFile);
    switch (settings.method) {
    case MailSettings::Method::None: return std::make_unique<NoSender>();
    case MailSettings::Method::Mapi: return std::make_unique<MapiSender>();
    default: break;
    }
    Secret password = settings.user.empty() ? Secret() : SmtpPassword();
    return std::make_unique<SmtpSender>(std::move(settings), std::move(password));
}

}  // namespace

HostMail::HostMail(const std::wstring& folder) : settingsFile_(InFolder(folder, L"KAZ2.ini")), log_(folder) {}

void HostMail::CheckSettings() {
    try {
        SettingsIn(settingsFile_);
    } catch (const MailFailure& failure) {
        News().Trouble(failure);
    }
}

void HostMail::Send(std::wstring_view to, std::wstring_view subject, std::wstring_view text) {
    Mail mail{ToUtf8(to), ToUtf8(subject), ToUtf8(text)};
    MailNews& news = News();
    try {
        if (!postman_) postman_.emplace([file = settingsFile_] { return SenderFor(file); }, news_);
        postman_->Post(std::move(mail));
    } catch (const std::system_error&) {
        news.NotSent(mail, {MailTrouble::MailProgram, "The system has no threads left."});
    }
}

void HostMail::Finish(std::chrono::milliseconds most) {
    if (postman_) postman_->Finish(most);
}

MailNews& HostMail::News() {
    if (!news_) {
        balloon_.emplace(log_.FileName());
        news_ = std::make_shared<MailNews>([this](const std::string& line) { log_.Write(line); },
                                           [this](const std::string& text) { balloon_->Show(ToWide(text)); });
    }
    return *news_;
}

}  // namespace kaz
