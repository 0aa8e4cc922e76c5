#include "storage/cSharedHTML.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "fakes/FakeLocale.h"

#include <gmock/gmock.h>

namespace kaz {
namespace {

using testing::ElementsAre;

TEST(TagCodec, FindsTheContentBetweenTags) {
    const struct {
        const char* text;
        const char* between;
        const char* withTags;
    } cases[] = {
        {"", "", ""},
        {"no tag at all</a>", "", ""},
        {"<A>x</A>", "x", "<A>x</A>"},  // whatever the letter case
        {"ab<a> x\r\n\t</a>c</a>", " x\r\n\t",
         "<a> x\r\n\t</a>"},                     // nothing is trimmed, the first end tag counts
        {"</a><a>x</a>", "x", "<a>x</a>"},       // an end tag before the start tag is no end
        {"<a>1<a>2</a>", "12", "<a>1<a>2</a>"},  // the start tag is removed wherever it recurs
        {"<a>1<A>2<a>", "12", "<a>1<A>2<a>"},
        {"<a>xyz", "xyz", "<a>xyz"},                  // no end tag: up to the end
        {"<a><<a>/a>1</a>", "1", "<a><<a>/a>1</a>"},  // an end tag that this makes goes too
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(cSharedHTML::ExtractWithTags(c.text, "<a>", "</a>"), c.withTags);
        EXPECT_EQ(cSharedHTML::ExtractBetweenTags(c.text, "<a>", "</a>"), c.between);
    }
    // Accented letters are no letters of a tag: the folding is ASCII only.
    EXPECT_EQ(cSharedHTML::ExtractBetweenTags("<\xC4>x</\xC4>", "<\xE4>", "</\xE4>"), "");
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

TEST(TagCodec, ReadsNumbersFlagsAndDates) {
    const auto number = [](const std::string& text) { return cSharedHTML::ExtractInt(text, "<n>", "</n>"); };
    EXPECT_EQ(number("<n>2.5</n>"), 2);
    EXPECT_EQ(number("<n>3.5</n>"), 4);
    EXPECT_EQ(number("<n>\r\n 12abc</n>"), 12);
    EXPECT_EQ(number("<n>&HFFFF</n>"), -1);
    EXPECT_EQ(number("no tag"), 0);
    EXPECT_EQ(number("<n>-2147483648"), INT32_MIN);
    EXPECT_THROW(number("<n>2147483648</n>"), RuntimeError);

    const auto flag = [](const std::string& text) { return cSharedHTML::ExtractBool(text, "<b>", "</b>"); };
    EXPECT_TRUE(flag("<b>-1</b>"));
    for (const char* no : {"<b>1</b>", "<b>True</b>", "<b> -1</b>", "<b>-1 </b>", "<b></b>", ""})
        EXPECT_FALSE(flag(no)) << no;

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

TEST(TagCodec, PercentEncodesAllButLettersDigitsAndFourMarks) {
    EXPECT_EQ(cSharedHTML::HtmlEncode("Tom & Jerry's 100%"), "Tom%20%26%20Jerry%27s%20100%25");
    EXPECT_EQ(cSharedHTML::HtmlEncode("\t\r\n-_/\\<\xE9:.,?"), "%09%0D%0A%2D%5F%2F%5C%3C%E9:.,?");

    std::string all;
    for (int code = 0; code < 256; ++code)
        all += static_cast<char>(code);
    EXPECT_EQ(cSharedHTML::HtmlDecode(cSharedHTML::HtmlEncode(all)), all);

    EXPECT_EQ(cSharedHTML::HtmlDecode("50%"), "50%");
    EXPECT_EQ(cSharedHTML::HtmlDecode("%4"), "%4");
    EXPECT_EQ(cSharedHTML::HtmlDecode("%%41%4"), std::string("\0", 1) + "1%4");
    EXPECT_EQ(cSharedHTML::HtmlDecode("a%zzb"), std::string("a\0b", 3));
}

TEST(TagCodec, DecodesEveryPairAsTheLenientNumberScannerReadsIt) {
    for (int pair = 0; pair < 65536; ++pair) {
        const std::string characters{static_cast<char>(pair / 256), static_cast<char>(pair % 256)};
        const auto expected = static_cast<char>(static_cast<int>(LeadingNumber("&H" + characters)));
        ASSERT_EQ(cSharedHTML::HtmlDecode("%" + characters), std::string(1, expected)) << pair;
    }
}

TEST(TagCodec, ReplacesEveryContentAndEndsOnEveryInput) {
    const auto replaced = [](std::string_view text, std::string_view with) {
        return cSharedHTML::ReplaceBetweenTags(text, "<a>", "</a>", with);
    };
    EXPECT_EQ(replaced("1<a>2</A>3<A></a>4", "x"), "1<a>x</A>3<A>x</a>4");
    EXPECT_EQ(replaced("<a>1<a>2</a>", "x"), "<a>x</a>");
    EXPECT_EQ(replaced("</a>1<a>2", "x"), "</a>1<a>2");
    EXPECT_EQ(replaced("<a>1</a>", "<a>"), "<a><a></a>");
    EXPECT_EQ(replaced("<a>1</a><a>2</a>", "<a></a>"), "<a><a></a></a><a><a></a></a>");
}

}  // namespace
}  // namespace kaz
