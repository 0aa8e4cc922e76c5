#pragma once

#include "platform/Printer.h"
#include "win32/Gdi.h"

#include <map>
#include <string>
#include <utility>

namespace kaz {

// Measures and prints with the fonts of one printer.
class Win32PrintJob : public PrintJob {
public:
    // Throws DeviceError when the context is none.
    Win32PrintJob(DeviceContext context, std::wstring documentName);

    int Width() const override {
        return FromPixels(GetDeviceCaps(context_.Get(), PHYSICALWIDTH), LOGPIXELSX);
    }
    int Height() const override {
        return FromPixels(GetDeviceCaps(context_.Get(), PHYSICALHEIGHT), LOGPIXELSY);
    }
    PaperRect Printable() const override;
    int TextWidth(std::string_view text, PaperFont font) const override;
    int LineHeight(PaperFont font) const override;
    std::size_t Fitting(std::string_view text, PaperFont font, int width) const override;
    bool Print(const std::vector<PaperPage>& pages) override;

private:
    int FromPixels(int pixels, int resolution) const;
    POINT ToPixels(int left, int top) const;
    void Select(PaperFont font) const;
    void PrintPage(const PaperPage& page) const;
    void PrintBar(const PaperBar& bar) const;
    void PrintText(const PaperText& text) const;

    // By points and boldness. A font cannot be deleted while a context has it, so they outlive the context.
    mutable std::map<std::pair<int, bool>, Font> fonts_;
    DeviceContext context_;
    std::wstring documentName_;
};

}  // namespace kaz
