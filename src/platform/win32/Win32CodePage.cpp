#include "base/CodePage.h"
#include "win32/SystemCodePage.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace kaz {

namespace {

// Read once at the first use; from then on no call of the system stands between a file and its text.
class SystemPage : public CodePage {
public:
    explicit SystemPage(unsigned number) : number_(number) {
        for (unsigned byte = 0; byte < 256; ++byte) {
            const auto code = static_cast<unsigned char>(byte);
            if (IsDBCSLeadByteEx(number_, code))
                TakePairs(code);
            else
                Means(code, LetterOf({static_cast<char>(code), 0}, 1));
        }
    }

private:
    void TakePairs(unsigned char lead) {
        Begins(lead);
        for (unsigned trail = 1; trail < 256; ++trail) {
            const auto code = static_cast<unsigned char>(trail);
            const char32_t letter = LetterOf({static_cast<char>(lead), static_cast<char>(code)}, 2);
            Means(lead, code, letter);
            if (letter != 0) Prefer(letter, WrittenAs(letter));
        }
    }

    char32_t LetterOf(std::array<char, 2> bytes, int count) const {
        wchar_t wide[2] = L"";
        const int size =
            MultiByteToWideChar(number_, count > 1 ? MB_ERR_INVALID_CHARS : 0, bytes.data(), count, wide, 2);
        return size == 1 ? wide[0] : U'\0';
    }

    std::uint16_t WrittenAs(char32_t letter) const {
        const auto wide = static_cast<wchar_t>(letter);
        char bytes[2] = "";
        BOOL lost = FALSE;
        const int size =
            WideCharToMultiByte(number_, WC_NO_BEST_FIT_CHARS, &wide, 1, bytes, 2, nullptr, &lost);
        const auto byte = [&](int at) {
            return static_cast<unsigned>(static_cast<unsigned char>(bytes[at]));
        };
        return lost || size != 2 ? std::uint16_t{0} : static_cast<std::uint16_t>(byte(0) << 8U | byte(1));
    }

    // The system's own table of letters that are alike.
    char32_t NearestOf(char32_t letter) const override {
        if (letter == 0 || letter > 0xFFFF) return 0;
        const auto wide = static_cast<wchar_t>(letter);
        std::array<char, 2> bytes{};
        BOOL lost = FALSE;
        const int size = WideCharToMultiByte(number_, 0, &wide, 1, bytes.data(), 2, nullptr, &lost);
        return lost || size < 1 ? U'\0' : LetterOf(bytes, size);
    }

    unsigned number_;
};

}  // namespace

const CodePage& CodePage::OfSystem() {
    static const SystemPage kSystem(SystemCodePageNumber());
    return kSystem;
}

}  // namespace kaz
