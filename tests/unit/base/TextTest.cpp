#include "base/Text.h"

#include "fakes/Matchers.h"

namespace kaz {
namespace {

TEST(Text, SplitKeepsEmptyPiecesAndObeysItsLimit) {
    EXPECT_THAT(Split("", ","), ElementsAre(""));
    EXPECT_THAT(Split("a,,b,", ","), ElementsAre("a", "", "b", ""));
    EXPECT_THAT(Split("a,b,c", ",", 2), ElementsAre("a", "b,c"));
    EXPECT_THAT(Split("a,b", ",", 1), ElementsAre("a,b"));
    EXPECT_THAT(Split("a,b", ""), ElementsAre("a,b"));
    EXPECT_THAT(Split("a\r\n\nb\r\n", "\r\n"), ElementsAre("a", "\nb", ""));
}

TEST(Text, ReplaceGoesOverTheTextOnce) {
    EXPECT_EQ(ReplaceAll("%20%", "%", "%25"), "%2520%25");
    EXPECT_EQ(ReplaceAll("aaa", "aa", "a"), "aa");
    EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(ReplaceAll("", "a", "x"), "");
}

TEST(Text, NamesAreEqualWithoutCaseAndBlanks) {
    EXPECT_TRUE(StringsEqual("  MÜLLER ", "müller"));
    EXPECT_TRUE(StringsEqual("", "   "));
    EXPECT_FALSE(StringsEqual("a b", "ab"));
    EXPECT_FALSE(StringsEqual("a\t", "a"));
    EXPECT_FALSE(StringsEqual("MÜLLER", "müller", CaseFolding::Ascii()));
    // The multiplication and the division sign are 32 apart, like a letter's two forms.
    EXPECT_FALSE(StringsEqual("×", "÷"));
    EXPECT_FALSE(StringsEqual("@[`{", "`{@["));
    EXPECT_EQ(UpperAscii("azä-1"), "AZä-1");
}

TEST(Text, FindLooksWithoutCaseFromAPlaceOn) {
    const CaseFolding& ascii = CaseFolding::Ascii();
    EXPECT_EQ(ascii.Find("xAbab", "aB"), 1U);
    EXPECT_EQ(ascii.Find("xAbab", "aB", 2), 3U);
    EXPECT_EQ(ascii.Find("xAbab", "aB", 4), std::string_view::npos);
    EXPECT_EQ(ascii.Find("ab", "", 2), 2U);
    EXPECT_EQ(ascii.Find("ab", "", 3), std::string_view::npos);
    EXPECT_EQ(ascii.Find("ab", "abc"), std::string_view::npos);
}

}  // namespace
}  // namespace kaz
