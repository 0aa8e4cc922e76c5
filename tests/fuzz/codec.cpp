// Any bytes as an event file: the quick reading and the word-for-word one give the same events and the same
// errors, and the operations of the codec keep their promises.

#include "fakes/FakeLocale.h"
#include "fuzz/Require.h"
#include "unit/storage/EventReading.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kaz;
    const std::string_view text(reinterpret_cast<const char*>(data), size);

    const LocaleData locale = size % 2 == 0 ? FakeLocale::English() : FakeLocale::German();
    const EventReading expected = EventReading::BySearch(text, locale);
    Require(EventReading::Streamed(text, locale) == expected, "the quick reading differs");
    Require(EventReading::Streamed(text, locale, 1 + size % 100) == expected,
            "a small buffer changes the reading");

    Require(cSharedHTML::HtmlDecode(cSharedHTML::HtmlEncode(text)) == text, "encoding loses text");
    const std::string_view tag = text.substr(0, size / 4);
    const std::string_view endTag = text.substr(size / 4, size / 4);
    const std::string_view with = text.substr(size / 2, size / 4);
    const std::string replaced = cSharedHTML::ReplaceBetweenTags(text, tag, endTag, with);
    Require(replaced.size() <= (size + 1) * (with.size() + tag.size() + 1),
            "replacing does not stop where it should");
    const std::string content = cSharedHTML::ExtractBetweenTags(text, tag, endTag);
    Require(content.size() <= cSharedHTML::ExtractWithTags(text, tag, endTag).size(),
            "the content is too long");
    return 0;
}
