#include "storage/WholeTexts.h"

#include "base/CodePage.h"
#include "base/Text.h"
#include "base/Utf8.h"

#include <algorithm>
#include <array>
#include <string>

namespace kaz {

namespace {

constexpr std::string_view kText = "text";

using Otherwise = CodePage::Otherwise;

// By the name of its tag.
struct TextField {
    std::string_view name;
    Otherwise otherwise;
    const std::string& (*get)(const clsEvent& event);
    void (*set)(clsEvent& event, std::string text);
};

template <std::string clsEvent::*Member>
constexpr TextField Plain(std::string_view name, Otherwise otherwise) {
    return {name, otherwise, [](const clsEvent& event) -> const std::string& { return event.*Member; },
            [](clsEvent& event, std::string text) { event.*Member = std::move(text); }};
}

// User IDs are not among them: they are names of files, and refused where they do not fit.
constexpr std::array<TextField, 5> kTextFields{{
    {"Desc", Otherwise::Nearest, [](const clsEvent& event) -> const std::string& { return event.Desc(); },
     [](clsEvent& event, std::string text) { event.Desc(std::move(text)); }},
    Plain<&clsEvent::SharedLayerName>("SharedLayerName", Otherwise::Nearest),
    Plain<&clsEvent::Email>("Email", Otherwise::QuestionMark),
    Plain<&clsEvent::Filename>("Filename", Otherwise::QuestionMark),
    Plain<&clsEvent::WavFile>("WavFile", Otherwise::QuestionMark),
}};

struct Entry {
    const TextField* field = nullptr;
    std::string_view sum;
    std::string_view whole;
};

std::string_view TakeWord(std::string_view& text) {
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(std::min(text.size(), word.size() + 1));
    return word;
}

// "Desc 0123456789abcdef the whole text".
Entry EntryIn(std::string_view argument) {
    Entry entry;
    const std::string_view name = TakeWord(argument);
    for (const TextField& field : kTextFields)
        if (field.name == name) entry.field = &field;
    entry.sum = TakeWord(argument);
    entry.whole = argument;
    return entry;
}

// Only a description has several lines, and none of the texts a zero. A tag would break the file of an older
// program.
bool IsSound(const Entry& entry) {
    const bool isLine = entry.field->name != kTextFields[0].name;
    return IsUtf8(entry.whole) && std::ranges::none_of(entry.whole, [&](char c) {
               return c == '\0' || (isLine && (IsControl(c) || c == '<'));
           });
}

}  // namespace

bool IsWholeText(const SideLine& line) { return line.verb == kText; }

bool FitsFile(const clsEvent& event) {
    return std::ranges::all_of(
        kTextFields, [&](const TextField& field) { return CodePage::OfSystem().Holds(field.get(event)); });
}

std::vector<SideLine> WholeTextLines(const clsEvent& event, const SideKey& key) {
    std::vector<SideLine> lines;
    const CodePage& page = CodePage::OfSystem();
    for (const TextField& field : kTextFields) {
        const std::string& text = field.get(event);
        if (page.Holds(text)) continue;
        std::string argument(field.name);
        argument.append(" ").append(HashDigits(page.Encode(text, field.otherwise)));
        argument.append(" ").append(CleanUtf8(text));
        lines.push_back({std::string(kText), key, std::nullopt, std::move(argument)});
    }
    return lines;
}

WholeText WholeTextFor(const clsEvent& event, const SideLine& line) {
    const Entry entry = EntryIn(line.argument);
    if (!entry.field || !IsSound(entry)) return WholeText::Left;
    const CodePage& page = CodePage::OfSystem();
    std::string room;
    const std::string_view bytes = page.BytesOf(entry.field->get(event), room, entry.field->otherwise);
    if (entry.sum != HashDigits(bytes)) return WholeText::Left;
    return page.Encode(entry.whole, entry.field->otherwise) == bytes ? WholeText::Fits : WholeText::Foreign;
}

void TakeWholeTexts(clsEvent& event, const std::vector<const SideLine*>& lines) {
    const CodePage& page = CodePage::OfSystem();
    for (const TextField& field : kTextFields)
        if (const std::string& text = field.get(event); !page.Holds(text))
            field.set(event, page.Decode(page.Encode(text, field.otherwise)));
    for (const SideLine* line : lines) {
        if (WholeTextFor(event, *line) != WholeText::Fits) continue;
        const Entry entry = EntryIn(line->argument);
        entry.field->set(event, std::string(entry.whole));
    }
}

bool HaveSameTexts(const clsEvent& a, const clsEvent& b) {
    return std::ranges::all_of(kTextFields,
                               [&](const TextField& field) { return field.get(a) == field.get(b); });
}

}  // namespace kaz
