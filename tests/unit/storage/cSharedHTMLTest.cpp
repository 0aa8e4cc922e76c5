#include "storage/cSharedHTML.h"

#include "base/Numbers.h"
#include "fakes/ErrorOf.h"
#include "fakes/FakeLocale.h"
#include "fakes/Matchers.h"
#include "fakes/TestData.h"

#include <functional>
#include <map>

namespace kaz {
namespace {

TEST(TagCodec, AnswersAsTheTableSays) {
    const std::map<std::string, std::function<std::string(const std::string&)>> questions{
        {"content", [](auto& text) { return cSharedHTML::ExtractBetweenTags(text, "<a>", "</a>"); }},
        {"with its tags", [](auto& text) { return cSharedHTML::ExtractWithTags(text, "<a>", "</a>"); }},
        {"number", [](auto& text) { return std::to_string(cSharedHTML::ExtractInt(text, "<a>", "</a>")); }},
        {"flag", [](auto& text) { return cSharedHTML::ExtractBool(text, "<a>", "</a>") ? "yes" : "no"; }},
        {"encoded", [](auto& text) { return cSharedHTML::HtmlEncode(text); }},
        {"decoded", [](auto& text) { return cSharedHTML::HtmlDecode(text); }}};
    for (const auto& row : GoldenTable("tags.txt")) {
        std::string answer;
        const int error = ErrorOf([&] {
            if (row[0].starts_with("replaced by "))
                answer = cSharedHTML::ReplaceBetweenTags(row[1], "<a>", "</a>", row[0].substr(12));
            else
                answer = questions.at(row[0])(row.at(1));
        });
        EXPECT_EQ(error != 0 ? "error " + std::to_string(error) : answer, row.at(2))
            << row[0] << " " << row[1];
    }
    // Accented letters are no letters of a tag: the folding is ASCII only.
    EXPECT_EQ(cSharedHTML::ExtractBetweenTags("<\xC4>x</\xC4>", "<\xE4>", "</\xE4>"), "");
    std::string all;
    for (int code = 0; code < 256; ++code)
        all += static_cast<char>(code);
    EXPECT_EQ(cSharedHTML::HtmlDecode(cSharedHTML::HtmlEncode(all)), all);
}

TEST(TagCodec, SplitsAnArrayWithItsTagsAtTheDelimiter) {
    std::vector<std::string> pieces{"left from before"};
    cSharedHTML::ExtractXMLArray("..<l>1<BR>2<br><br>3</l>..", "<l>", "</l>", "<br>", pieces);
    EXPECT_THAT(pieces, ElementsAre("<l>1", "2", "", "3</l>"));
    cSharedHTML::ExtractXMLArray("<l>1;2</l>", "<l>", "</l>", "", pieces);
    EXPECT_THAT(pieces, ElementsAre("<l>1;2</l>"));
    cSharedHTML::ExtractXMLArray("nothing", "<l>", "</l>", ";", pieces);
    EXPECT_THAT(pieces, ElementsAre());
}

TEST(TagCodec, ReadsDatesInEveryLocale) {
    const auto date = [](const LocaleData& locale, const std::string& text) {
        return cSharedHTML(locale).ExtractDate(text, "<d>", "</d>");
    };
    const DateValue day = DateValue::FromCivil(2006, 3, 1);
    for (const LocaleData& locale : {FakeLocale::English(), FakeLocale::German(), FakeLocale::Polish()}) {
        EXPECT_EQ(date(locale, cSharedHTML::EncloseDate(day.PlusMinutes(870), "<d>", "</d>")), day);
        EXPECT_EQ(date(locale, "<d>2006-03-01 14:30</d>"), day);
        EXPECT_EQ(date(locale, "<d>soon</d>"), DateValue());
        EXPECT_EQ(date(locale, "<x>"), DateValue());
    }
}

TEST(TagCodec, EnclosesValuesWithNothingAroundThem) {
    EXPECT_EQ(cSharedHTML::EncloseInt(-120, "<n>", "</n>"), "<n>-120</n>");
    EXPECT_EQ(cSharedHTML::EncloseBool(true, "<b>", "</b>"), "<b>-1</b>");
    EXPECT_EQ(cSharedHTML::EncloseDate(DateValue::FromCivil(206, 3, 1), "<d>", "</d>"), "<d>0206-03-01</d>");
    EXPECT_EQ(cSharedHTML::EncloseString("a/b", "<s>", "</s>"), "<s>a%2Fb</s>");
    EXPECT_EQ(cSharedHTML::ExtractString("<s>a%2Fb</s>", "<s>", "</s>"), "a/b");
}

TEST(TagCodec, LosesFractionsWhereTheFullStopGroupsDigits) {
    const struct {
        LocaleData locale;
        const char* written;
        double readBack;
    } cases[] = {
        {FakeLocale::English(), "<f>1.5</f>", 1.5},
        {FakeLocale::German(), "<f>1.5</f>", 1},
        {FakeLocale::Polish(), "<f>1,5</f>", 1},  // a comma, but no full stop between the digits
    };
    for (const auto& c : cases) {
        const cSharedHTML codec(c.locale);
        EXPECT_EQ(codec.EncloseFloat(1.5, "<f>", "</f>"), c.written);
        EXPECT_EQ(codec.ExtractFloat(c.written, "<f>", "</f>"), c.readBack);
        EXPECT_EQ(codec.EncloseFloat(-1e15, "<f>", "</f>"), "<f>-1E+15</f>");
        EXPECT_EQ(codec.EncloseFloat(123456789012345, "<f>", "</f>"), "<f>123456789012345</f>");
    }
}

TEST(TagCodec, DecodesEveryPairAsTheLenientNumberScannerReadsIt) {
    for (int pair = 0; pair < 65536; ++pair) {
        const std::string characters{static_cast<char>(pair / 256), static_cast<char>(pair % 256)};
        const auto expected = static_cast<char>(static_cast<int>(LeadingNumber("&H" + characters)));
        ASSERT_EQ(cSharedHTML::HtmlDecode("%" + characters), std::string(1, expected)) << pair;
    }
}

}  // namespace
}  // namespace kaz
