#include "forms/win32/Win32PrintJob.h"

#include "base/RuntimeError.h"
#include "base/Utf8.h"
#include "win32/Text.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr int kPerInch = 2540;  // hundredths of a millimetre
constexpr int kPointsPerInch = 72;
constexpr wchar_t kFace[] = L"Segoe UI";

[[noreturn]] void ThrowPrinterFailure() {
    throw RuntimeError(
        ErrorNumber::DeviceError,
        "The printer does not take the document. Please look whether it is connected and ready.");
}

COLORREF ToColour(Grey grey) { return COLORREF{grey} * 0x010101; }

// A document that is not ended is taken back.
class OpenDocument {
public:
    explicit OpenDocument(HDC context) : context_(context) {}
    ~OpenDocument() {
        if (open_) AbortDoc(context_);
    }
    OpenDocument(const OpenDocument&) = delete;
    OpenDocument& operator=(const OpenDocument&) = delete;

    // False when the user gave up: a printer that makes files asks for their names here.
    bool Start(const std::wstring& name) {
        DOCINFOW document{};
        document.cbSize = sizeof document;
        document.lpszDocName = name.c_str();
        open_ = StartDocW(context_, &document) > 0;
        if (!open_ && GetLastError() != ERROR_CANCELLED) ThrowPrinterFailure();
        return open_;
    }
    void End() {
        if (EndDoc(context_) <= 0) ThrowPrinterFailure();
        open_ = false;
    }

private:
    HDC context_;
    bool open_ = false;
};

}  // namespace

Win32PrintJob::Win32PrintJob(DeviceContext context, std::wstring documentName)
    : context_(std::move(context)),
      documentName_(std::move(documentName)) {
    if (!context_) ThrowPrinterFailure();
}

int Win32PrintJob::FromPixels(int pixels, int resolution) const {
    return MulDiv(pixels, kPerInch, GetDeviceCaps(context_.Get(), resolution));
}

// The device counts from the corner of what it can reach.
POINT Win32PrintJob::ToPixels(int left, int top) const {
    const HDC context = context_.Get();
    return {
        MulDiv(left, GetDeviceCaps(context, LOGPIXELSX), kPerInch) - GetDeviceCaps(context, PHYSICALOFFSETX),
        MulDiv(top, GetDeviceCaps(context, LOGPIXELSY), kPerInch) - GetDeviceCaps(context, PHYSICALOFFSETY)};
}

PaperRect Win32PrintJob::Printable() const {
    const HDC context = context_.Get();
    const int left = FromPixels(GetDeviceCaps(context, PHYSICALOFFSETX), LOGPIXELSX);
    const int top = FromPixels(GetDeviceCaps(context, PHYSICALOFFSETY), LOGPIXELSY);
    return {left, top, left + FromPixels(GetDeviceCaps(context, HORZRES), LOGPIXELSX),
            top + FromPixels(GetDeviceCaps(context, VERTRES), LOGPIXELSY)};
}

void Win32PrintJob::Select(PaperFont font) const {
    Font& owner = fonts_[{font.points, font.bold}];
    if (!owner) {
        const int height = MulDiv(font.points, GetDeviceCaps(context_.Get(), LOGPIXELSY), kPointsPerInch);
        owner.Reset(CreateFontW(-height, 0, 0, 0, font.bold ? FW_BOLD : FW_NORMAL, FALSE, FALSE, FALSE,
                                DEFAULT_CHARSET, OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                                DEFAULT_PITCH | FF_SWISS, kFace));
    }
    SelectObject(context_.Get(), owner ? owner.Get() : GetStockObject(DEVICE_DEFAULT_FONT));
}

int Win32PrintJob::TextWidth(std::string_view text, PaperFont font) const {
    if (text.empty()) return 0;
    Select(font);
    const std::wstring wide = ToWide(text);
    SIZE size{};
    GetTextExtentPoint32W(context_.Get(), wide.c_str(), static_cast<int>(wide.size()), &size);
    return FromPixels(size.cx, LOGPIXELSX) + 1;  // never less than it takes
}

int Win32PrintJob::LineHeight(PaperFont font) const {
    Select(font);
    TEXTMETRICW metric{};
    GetTextMetricsW(context_.Get(), &metric);
    return FromPixels(metric.tmHeight + metric.tmExternalLeading, LOGPIXELSY) + 1;
}

std::size_t Win32PrintJob::Fitting(std::string_view text, PaperFont font, int width) const {
    Select(font);
    // No line is longer, and a text of any length is not measured whole for each of its lines.
    constexpr std::size_t kLongestLine = 1000;
    text = text.substr(0, BytesOfUtf16(text, kLongestLine));
    const std::wstring wide = ToWide(text);
    SIZE size{};
    int count = 0;
    const int room = MulDiv(std::max(width - 1, 0), GetDeviceCaps(context_.Get(), LOGPIXELSX), kPerInch);
    GetTextExtentExPointW(context_.Get(), wide.c_str(), static_cast<int>(wide.size()), room, &count, nullptr,
                          &size);
    return BytesOfUtf16(text, static_cast<std::size_t>(count));
}

bool Win32PrintJob::Print(const std::vector<PaperPage>& pages) {
    OpenDocument document(context_.Get());
    if (!document.Start(documentName_)) return false;
    for (const PaperPage& page : pages) {
        if (StartPage(context_.Get()) <= 0) ThrowPrinterFailure();
        PrintPage(page);
        if (EndPage(context_.Get()) <= 0) ThrowPrinterFailure();
    }
    document.End();
    return true;
}

void Win32PrintJob::PrintPage(const PaperPage& page) const {
    SetBkMode(context_.Get(), TRANSPARENT);
    SetTextAlign(context_.Get(), TA_LEFT | TA_TOP);
    for (const PaperBar& bar : page.bars)
        PrintBar(bar);
    for (const PaperText& text : page.texts)
        PrintText(text);
}

void Win32PrintJob::PrintBar(const PaperBar& bar) const {
    const POINT from = ToPixels(bar.place.left, bar.place.top);
    const POINT to = ToPixels(bar.place.right, bar.place.bottom);
    // A hairline is at least a dot wide.
    const RECT place{from.x, from.y, std::max(to.x, from.x + 1), std::max(to.y, from.y + 1)};
    const Brush brush(CreateSolidBrush(ToColour(bar.grey)));
    FillRect(context_.Get(), &place, brush.Get());
}

void Win32PrintJob::PrintText(const PaperText& text) const {
    Select(text.font);
    SetTextColor(context_.Get(), ToColour(text.grey));
    const POINT at = ToPixels(text.left, text.top);
    const std::wstring wide = ToWide(text.text);
    TextOutW(context_.Get(), at.x, at.y, wide.c_str(), static_cast<int>(wide.size()));
}

}  // namespace kaz
