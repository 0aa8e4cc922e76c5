#include "floor/Writer.h"

#include "floor/Days.h"

#include <charconv>

namespace bare {
namespace {

constexpr std::size_t kPiece = 256 * 1024;

void AppendTwo(std::string& text, int value) {
    text.push_back(static_cast<char>('0' + value / 10));
    text.push_back(static_cast<char>('0' + value % 10));
}

void AppendNumber(std::string& text, int value) {
    char digits[12];
    text.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

void AppendDate(std::string& text, int day) {
    const Civil date = CivilOf(day);
    AppendTwo(text, date.year / 100), AppendTwo(text, date.year % 100), text.push_back('-');
    AppendTwo(text, date.month), text.push_back('-'), AppendTwo(text, date.day);
}

void AppendTime(std::string& text, int minute) {
    text.append("1899-12-30 ");
    AppendTwo(text, minute / 60), text.push_back(':'), AppendTwo(text, minute % 60);
}

constexpr std::array<bool, 256> kPlain = [] {
    std::array<bool, 256> plain{};
    for (std::size_t c = 0; c < plain.size(); ++c)
        plain[c] = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == ':' ||
                   c == '.' || c == ',' || c == '?';
    return plain;
}();

void AppendEncoded(std::string& text, std::string_view value) {
    constexpr char kHex[] = "0123456789ABCDEF";
    for (const char c : value) {
        const auto byte = static_cast<unsigned char>(c);
        if (kPlain[byte]) {
            text.push_back(c);
        } else {
            const char code[] = {'%', kHex[byte >> 4], kHex[byte & 15]};
            text.append(code, sizeof code);
        }
    }
}

void AppendBlock(std::string& text, const Record& record) {
    std::size_t next = 0;
    const auto field = [&](auto append, const auto& value) {
        text.append("\t\t").append(kTags[next].open);
        append(text, value);
        text.append(kTags[next++].close).append("\r\n");
    };
    const auto plain = [&](const std::string& value) {
        field([](std::string& out, const std::string& it) { out.append(it); }, value);
    };
    const auto flag = [&](bool value) {
        field([](std::string& out, bool it) { out.append(it ? "-1" : "0"); }, value);
    };
    const auto number = [&](int value) { field(AppendNumber, value); };
    const auto date = [&](int value) { field(AppendDate, value); };
    const auto time = [&](int value) { field(AppendTime, value); };
    const auto encoded = [&](const std::string& value) { field(AppendEncoded, value); };
    text.append("<KAZ2>\r\n\t<EVENT>\r\n");
    plain(record.code), flag(record.alarm), time(record.alarmMinute), number(record.number);
    number(record.dayOfMonth), number(record.dayOfWeek), number(record.daysLeft), number(record.warning);
    flag(record.deleted), flag(record.mailSent), encoded(record.description), date(record.due);
    time(record.dueMinute), number(record.layer), plain(record.sharedLayer), plain(record.email);
    number(record.minutesWarning), number(record.month), plain(record.owner), number(record.period);
    number(record.type), flag(record.recurring), date(record.start), number(record.weekDays);
    flag(record.shared), flag(record.runFile), plain(record.file), plain(record.sound);
    flag(record.playSound), flag(record.specific), encoded(record.shareNames);
    text.append("\t</EVENT>\r\n</KAZ2>\r\n");
}

}  // namespace

void Write(const std::vector<Record>& records, const std::function<void(std::string_view)>& take) {
    std::string text = "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>\r\n";
    text.reserve(kPiece + 8192);
    for (const Record& record : records) {
        if (record.deleted) continue;
        AppendBlock(text, record);
        if (text.size() < kPiece) continue;
        take(text);
        text.clear();
    }
    take(text);
}

}  // namespace bare
