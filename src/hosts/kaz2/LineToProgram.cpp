#include "hosts/kaz2/LineToProgram.h"

#include <algorithm>
#include <optional>

namespace kaz {

namespace {

// "KAZL"; no other message of this kind may be taken for a line.
constexpr ULONG_PTR kLine = 0x4B415A4C;
constexpr DWORD kLongestText = 8000;  // in bytes
constexpr UINT kPatience = 30000;     // milliseconds
constexpr wchar_t kAskerClass[] = L"KAZ2Asker";

COPYDATASTRUCT DataOf(const std::wstring& text, ULONG_PTR kind) {
    COPYDATASTRUCT data{};
    data.dwData = kind;
    data.cbData = std::min(static_cast<DWORD>(text.size() * sizeof(wchar_t)), kLongestText);
    data.lpData = const_cast<wchar_t*>(text.data());
    return data;
}

std::optional<std::wstring> TextOf(const COPYDATASTRUCT& data) {
    if ((data.dwData & ~ULONG_PTR{1}) != kLine || data.cbData > kLongestText) return std::nullopt;
    const auto* text = static_cast<const wchar_t*>(data.lpData);
    return std::wstring(text ? text : L"", text ? data.cbData / sizeof(wchar_t) : 0);
}

// The answer arrives in here while the asker waits for his message.
LRESULT CALLBACK TakeReply(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message != WM_COPYDATA) return DefWindowProcW(window, message, first, second);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a window keeps its owner as a number
    auto* const reply = reinterpret_cast<LineReply*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(second);
    const auto text = TextOf(data);
    if (!reply || !text) return FALSE;
    *reply = {(data.dwData & 1) != 0, *text};
    return TRUE;
}

}  // namespace

LineReply LineToProgram::Send(HWND program, const std::wstring& line) {
    LineReply reply{false, L"KAZ is running, but does not answer. Nothing was added."};
    WNDCLASSW description{};
    description.lpfnWndProc = TakeReply;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = kAskerClass;
    RegisterClassW(&description);
    const HWND asker = CreateWindowExW(0, kAskerClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                       description.hInstance, nullptr);
    if (!asker) return reply;
    SetWindowLongPtrW(asker, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&reply));
    COPYDATASTRUCT data = DataOf(line, kLine);
    DWORD_PTR result = 0;
    SendMessageTimeoutW(program, WM_COPYDATA, reinterpret_cast<WPARAM>(asker),
                        reinterpret_cast<LPARAM>(&data), SMTO_ABORTIFHUNG, kPatience, &result);
    SetWindowLongPtrW(asker, GWLP_USERDATA, 0);
    DestroyWindow(asker);
    return reply;
}

bool LineToProgram::Receive(HWND asker, const COPYDATASTRUCT& data, const Add& add) {
    const auto line = TextOf(data);
    if (!line) return false;
    const LineReply reply = add(*line);
    COPYDATASTRUCT answer = DataOf(reply.told, kLine | (reply.added ? 1U : 0U));
    DWORD_PTR taken = 0;
    SendMessageTimeoutW(asker, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&answer), SMTO_ABORTIFHUNG, kPatience,
                        &taken);
    return true;
}

}  // namespace kaz
