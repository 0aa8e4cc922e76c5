#include "base/CodePage.h"

#include "base/CaseFolding.h"
#include "base/Utf8.h"
#include "fakes/Matchers.h"

namespace kaz {
namespace {

// Two lead bytes, 0x81 and 0x83, in whose rows the letter's second byte may be an ASCII one; what else is
// beyond ASCII means nothing.
class SmallPage : public CodePage {
public:
    SmallPage() {
        for (unsigned byte = 0; byte < 0x80; ++byte)
            Means(static_cast<unsigned char>(byte), byte);
        for (unsigned byte = 0x80; byte < 0x100; ++byte)
            Means(static_cast<unsigned char>(byte), 0);
        Begins(0x81);
        Begins(0x83);
        Means(0x83, 0x5C, U'ソ');
        Means(0x81, 0x40, U'日');
        Means(0x83, 0x41, U'日');
        Prefer(U'日', 0x8341);
    }

private:
    char32_t NearestOf(char32_t letter) const override { return letter == U'Ł' ? U'L' : U'\0'; }
};

TEST(CodePage, EveryRowOfBytesComesBack) {
    const SmallPage small;
    for (unsigned first = 0; first < 256; ++first)
        for (unsigned second = 0; second < 256; ++second) {
            const std::string bytes{static_cast<char>(first), static_cast<char>(second)};
            const std::string text = CodePage::Western().Decode(bytes);
            EXPECT_TRUE(IsUtf8(text));
            EXPECT_EQ(CodePage::Western().Encode(text), bytes);
            EXPECT_TRUE(CodePage::Western().Holds(text));
            if (bytes == "\x81\x40") continue;
            EXPECT_EQ(small.Encode(small.Decode(bytes)), bytes) << first << " " << second;
        }
    EXPECT_EQ(small.Decode("a\x83\x5C\\\x83"), "aソ\\\uEE83");
    EXPECT_EQ(small.Encode(small.Decode("\x81\x40")), "\x83\x41") << "the usual code of a letter with two";
    EXPECT_FALSE(small.Holds("\uEE83\\")) << "two letters whose bytes make another one";
    EXPECT_TRUE(small.Holds("\uEE83"));
}

TEST(CodePage, WhatItDoesNotHoldBecomesTheNearestLetterOrAQuestionMark) {
    const CodePage& page = CodePage::Western();
    EXPECT_EQ(page.Encode("Łukasz Ωμέγα 🎂 שלום 日本"), "Lukasz ????? ? ???? ??");
    EXPECT_EQ(page.Encode("Łódź é e\u0301 👩‍👩‍👧 ﬁ"), "L\xF3"
                                                                        "dz \xE9 e ??? f");
    EXPECT_EQ(page.Encode("C:\\Łódź.exe", CodePage::Otherwise::QuestionMark), "C:\\?\xF3"
                                                                              "d?.exe");
    for (const std::string_view broken :
         {"\xFF", "\xC0\x80", "\xED\xA0\x80", "\xE4\xB8", "\xF5\x80\x80\x80"}) {
        EXPECT_FALSE(page.Holds(broken));
        EXPECT_THAT(page.Encode(broken), testing::MatchesRegex("\\?+"));
        EXPECT_THAT(CleanUtf8(broken), StartsWith("\uFFFD"));
    }
    EXPECT_THAT(page.Refusal("café 🎂"), HasSubstr("U+1F382"));
    EXPECT_EQ(page.Refusal("café"), "");
}

TEST(CodePage, LettersAreCountedAsAReaderDoes) {
    const std::string text = "e\u0301👩‍👩‍👧🇩🇪x";
    for (const auto& [count, length] :
         {std::pair{0U, 0U}, {1U, 3U}, {2U, 21U}, {3U, 29U}, {4U, 30U}, {9U, 30U}})
        EXPECT_EQ(BytesOfLetters(text, count), length);
    for (const auto& [bytes, whole] :
         {std::pair{0U, 0U}, {2U, 0U}, {3U, 3U}, {20U, 3U}, {29U, 29U}, {99U, 30U}})
        EXPECT_EQ(WholeLetters(text, bytes), whole);
    EXPECT_EQ(BytesOfUtf16("a🎂b", 2), 1U);
    EXPECT_EQ(Utf16Length("a🎂b"), 4U);
    const CaseFolding& letters = CaseFolding::Letters();
    EXPECT_TRUE(letters.Equal("ŁÓDŹ ΩΣ", "łódź ως"));
    EXPECT_EQ(letters.Find("Das Café", "É"), 7U);
    EXPECT_TRUE(letters.Less("Äpfel", "über") && !letters.Less("ÄPFEL", "äpfel") && letters.Less("z", "é"));
}

}  // namespace
}  // namespace kaz
