#include "floor/Reader.h"

#include "floor/Days.h"
#include "floor/Find.h"

#include <strings.h>

#include <cstdio>
#include <cstring>

namespace bare {
namespace {

constexpr std::string_view kEnd = "</EVENT>";

// A tag starts with '<', which has no case.
const char* FindAnyCase(const char* at, const char* end, std::string_view tag) {
    for (;; ++at) {
        at = static_cast<const char*>(std::memchr(at, '<', static_cast<std::size_t>(end - at)));
        if (!at || static_cast<std::size_t>(end - at) < tag.size()) return nullptr;
        if (strncasecmp(at, tag.data(), tag.size()) == 0) return at;
    }
}

bool StartsWith(const char* at, const char* end, std::string_view text) {
    return static_cast<std::size_t>(end - at) >= text.size() &&
           std::memcmp(at, text.data(), text.size()) == 0;
}

// The field's value where the writer puts it, an empty view with no data when it is not there.
std::string_view Expected(const char*& at, const char* end, const Tags& tags) {
    while (at < end && (*at == '\t' || *at == '\r' || *at == '\n'))
        ++at;
    if (!StartsWith(at, end, tags.open)) return {};
    const char* value = at + tags.open.size();
    const auto* stop =
        static_cast<const char*>(std::memchr(value, '<', static_cast<std::size_t>(end - value)));
    if (!stop || !StartsWith(stop, end, tags.close)) return {};
    at = stop + tags.close.size();
    return {value, static_cast<std::size_t>(stop - value)};
}

template <Search how>
void Locate(const char* block, const char* end, Fields& fields) {
    const char* at = block;
    if constexpr (how == Search::AtExpectedPlace) {
        constexpr std::string_view kBegin = "<EVENT>";
        if (const char* begin = Find(block, end, kBegin)) at = begin + kBegin.size();
    }
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const Tags& tags = kTags[i];
        if constexpr (how == Search::AtExpectedPlace) {
            fields[i] = Expected(at, end, tags);
            if (fields[i].data()) continue;
        }
        constexpr auto kFind = how == Search::WordForWord ? FindAnyCase : Find;
        const char* open = kFind(how == Search::InOrder ? at : block, end, tags.open);
        const char* close = open ? kFind(open + tags.open.size(), end, tags.close) : nullptr;
        fields[i] = {};
        if (!close) continue;
        open += tags.open.size();
        fields[i] = {open, static_cast<std::size_t>(close - open)};
        at = close + tags.close.size();
    }
}

template <Search how>
std::size_t FindAll(std::string_view text) {
    std::size_t found = 0;
    Fields fields;
    const char* at = text.data();
    const char* end = at + text.size();
    while (const char* stop = Find(at, end, kEnd)) {
        Locate<how>(at, stop, fields);
        found += fields.back().size();
        at = stop + kEnd.size();
    }
    return found;
}

int Number(std::string_view text) {
    const bool negative = text.starts_with('-');
    int value = 0;
    for (const char digit : text.substr(negative))
        value = value * 10 + (digit - '0');
    return negative ? -value : value;
}

int MinuteOf(std::string_view text) {
    return text.size() < 16 ? 0 : Number(text.substr(11, 2)) * 60 + Number(text.substr(14, 2));
}

int Hex(char digit) { return digit <= '9' ? digit - '0' : (digit | 32) - 'a' + 10; }

std::string Decoded(std::string_view text) {
    std::string result(text.size(), '\0');
    char* out = result.data();
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size()) {
            *out++ = static_cast<char>(Hex(text[i + 1]) * 16 + Hex(text[i + 2]));
            i += 2;
        } else {
            *out++ = text[i];
        }
    }
    result.resize(static_cast<std::size_t>(out - result.data()));
    return result;
}

void Convert(const Fields& fields, Record& record) {
    std::size_t next = 0;
    const auto text = [&](std::string& value) { value = fields[next++]; };
    const auto decoded = [&](std::string& value) { value = Decoded(fields[next++]); };
    const auto flag = [&](bool& value) { value = fields[next++] == "-1"; };
    const auto minute = [&](int& value) { value = MinuteOf(fields[next++]); };
    const auto day = [&](int& value) { value = DayOf(fields[next++]); };
    const auto number = [&](auto& value) {
        value = static_cast<std::remove_reference_t<decltype(value)>>(Number(fields[next++]));
    };
    text(record.code), flag(record.alarm), minute(record.alarmMinute), number(record.number);
    number(record.dayOfMonth), number(record.dayOfWeek), number(record.daysLeft), number(record.warning);
    flag(record.deleted), flag(record.mailSent), decoded(record.description), day(record.due);
    minute(record.dueMinute), number(record.layer), text(record.sharedLayer), text(record.email);
    number(record.minutesWarning), number(record.month), text(record.owner), number(record.period);
    number(record.type), flag(record.recurring), day(record.start), number(record.weekDays);
    flag(record.shared), flag(record.runFile), text(record.file), text(record.sound);
    flag(record.playSound), flag(record.specific), decoded(record.shareNames);
}

}  // namespace

int DayOf(std::string_view text) {
    return text.size() < 10
               ? 0
               : DayNumber(Number(text.substr(0, 4)), Number(text.substr(5, 2)), Number(text.substr(8, 2)));
}

std::size_t FindAllFields(std::string_view text, Search search) {
    switch (search) {
    case Search::AtExpectedPlace: return FindAll<Search::AtExpectedPlace>(text);
    case Search::InOrder: return FindAll<Search::InOrder>(text);
    case Search::WordForWord: return FindAll<Search::WordForWord>(text);
    }
    return 0;
}

std::vector<Record> ReadFile(const char* name) {
    std::vector<Record> records;
    std::FILE* file = std::fopen(name, "rb");
    if (!file) return records;
    std::setvbuf(file, nullptr, _IONBF, 0);
    std::fseek(file, 0, SEEK_END);
    const auto size = static_cast<std::size_t>(std::ftell(file));
    std::rewind(file);
    std::string buffer(256 * 1024, '\0');
    std::size_t kept = 0;
    Fields fields;
    while (const std::size_t read = std::fread(buffer.data() + kept, 1, buffer.size() - kept, file)) {
        const char* at = buffer.data();
        const char* end = at + kept + read;
        while (const char* stop = Find(at, end, kEnd)) {
            // The first block tells how many there will be, roughly.
            if (records.empty()) records.reserve(size / static_cast<std::size_t>(stop - at + 8) * 9 / 8 + 16);
            Locate<Search::AtExpectedPlace>(at, stop, fields);
            Convert(fields, records.emplace_back());
            at = stop + kEnd.size();
        }
        kept = static_cast<std::size_t>(end - at);
        std::memmove(buffer.data(), at, kept);
        if (kept == buffer.size()) buffer.resize(buffer.size() * 2);
    }
    std::fclose(file);
    return records;
}

std::string ReadWhole(const char* name) {
    std::string text;
    std::FILE* file = std::fopen(name, "rb");
    if (!file) return text;
    std::fseek(file, 0, SEEK_END);
    text.resize(static_cast<std::size_t>(std::ftell(file)));
    std::rewind(file);
    if (std::fread(text.data(), 1, text.size(), file) != text.size()) text.clear();
    std::fclose(file);
    return text;
}

}  // namespace bare
