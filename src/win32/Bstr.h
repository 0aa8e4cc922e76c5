#pragma once

#include <windows.h>
#include <oleauto.h>

#include <string_view>
#include <utility>

namespace kaz {

// A text of automation, which may hold zeros. A null pointer is an empty text.
inline std::wstring_view View(BSTR text) { return {text ? text : L"", SysStringLen(text)}; }

// Owns such a text.
class Bstr {
public:
    Bstr() = default;
    // The text stays null when memory is short.
    explicit Bstr(std::wstring_view text)
        : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    Bstr(Bstr&& other) noexcept : text_(other.Detach()) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    ~Bstr() { SysFreeString(text_); }

    BSTR Get() const { return text_; }
    BSTR Detach() { return std::exchange(text_, nullptr); }
    BSTR* Put() {
        SysFreeString(Detach());
        return &text_;
    }
    std::wstring_view View() const { return kaz::View(text_); }

private:
    BSTR text_ = nullptr;
};

}  // namespace kaz
