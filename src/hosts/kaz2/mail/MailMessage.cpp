#include "hosts/kaz2/mail/MailMessage.h"

#include "hosts/kaz2/mail/MailText.h"

#include <array>
#include <cstdio>
#include <random>

namespace kaz {

namespace {

// The words and the form are the mail's own, whatever the language of the machine.
std::string DateText(std::chrono::sys_seconds time) {
    static constexpr std::array kDays{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    static constexpr std::array kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                        "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    char text[64];
    std::snprintf(text, sizeof text, "%s, %02u %s %04d %02d:%02d:%02d +0000",
                  kDays[std::chrono::weekday(day).c_encoding()], static_cast<unsigned>(date.day()),
                  kMonths[static_cast<unsigned>(date.month()) - 1], static_cast<int>(date.year()),
                  static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
    return text;
}

}  // namespace

MailStamp MailStamp::Now() {
    const auto time = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    std::random_device random;
    char unique[40];
    std::snprintf(unique, sizeof unique, "%llx%08x%08x",
                  static_cast<unsigned long long>(time.time_since_epoch().count()), random(), random());
    return {time, unique};
}

std::string MailMessage(const Mail& mail, const std::string& from, const std::vector<std::string>& recipients,
                        const MailStamp& stamp) {
    std::string to;
    for (const std::string& recipient : recipients)
        to.append(to.empty() ? "" : ",\r\n ").append(recipient);
    return "Date: " + DateText(stamp.time) + "\r\nFrom: KAZ <" + from + ">\r\nTo: " + to +
           "\r\nSubject: " + HeaderText(mail.subject) + "\r\nMessage-ID: <" + stamp.unique +
           from.substr(from.find('@')) +
           ">\r\n"
           // No machine answers a machine ("I am on holiday").
           "Auto-Submitted: auto-generated\r\n"
           "MIME-Version: 1.0\r\n"
           "Content-Type: text/plain; charset=utf-8\r\n"
           "Content-Transfer-Encoding: quoted-printable\r\n"
           "\r\n" +
           QuotedPrintable(mail.text);
}

}  // namespace kaz
