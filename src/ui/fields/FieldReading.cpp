#include "ui/fields/FieldReading.h"

#include "base/CodePage.h"
#include "base/Numbers.h"
#include "storage/EventXml.h"
#include "ui/fields/FieldFault.h"

#include <cmath>

namespace kaz {

std::string TypedText(const Control& field) {
    try {
        return field.Text();
    } catch (const RuntimeError& error) {
        throw FieldFault(field.Id(), error.Description());
    }
}

std::string FittingText(const Control& field) {
    std::string text = TypedText(field);
    const CodePage& page = CodePage::OfSystem();
    if (!page.Holds(text)) throw FieldFault(field.Id(), page.Refusal(text));
    return text;
}

std::string StorableText(const Control& field, std::string_view name) {
    std::string text = TypedText(field);
    if (text.find_first_of("\r\n") != std::string::npos)
        throw FieldFault(field.Id(), std::string(name).append(" must be a single line."));
    if (const std::string tag = EventXml::FirstTag(text); !tag.empty())
        throw FieldFault(field.Id(), std::string(name)
                                         .append(" must not contain \"")
                                         .append(tag)
                                         .append("\", which has a meaning in the event file."));
    return text;
}

std::int16_t TypedNumber(const Control& field, std::int16_t least, std::int16_t most,
                         const NumberMessages& messages) {
    const std::string text = TypedText(field);
    double value = 0;
    try {
        value = StrictNumber(text);
    } catch (const RuntimeError&) {
        throw FieldFault(field.Id(), messages.notNumeric);
    }
    if (value < least || value > most || value != std::floor(value))
        throw FieldFault(field.Id(), messages.outOfRange);
    return static_cast<std::int16_t>(value);
}

}  // namespace kaz
