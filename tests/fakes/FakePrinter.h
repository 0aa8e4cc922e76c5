#pragma once

#include "base/RuntimeError.h"
#include "platform/Printer.h"

#include <algorithm>
#include <optional>

namespace kaz {

// A sheet on which narrow, wide and bold letters differ in width as in most fonts.
template <class Base>
class FakeSheet : public Base {
public:
    explicit FakeSheet(PaperRect size = {0, 0, 21000, 29700}, int unreachable = 420)
        : size_(size),
          unreachable_(unreachable) {}

    int Width() const override { return size_.right; }
    int Height() const override { return size_.bottom; }
    PaperRect Printable() const override {
        return {unreachable_, unreachable_, size_.right - unreachable_, size_.bottom - unreachable_};
    }
    int TextWidth(std::string_view text, PaperFont font) const override {
        int width = 0;
        for (const char c : text)
            width += LetterWidth(c, font);
        return width;
    }
    int LineHeight(PaperFont font) const override { return font.points * 47; }
    std::size_t Fitting(std::string_view text, PaperFont font, int width) const override {
        std::size_t count = 0;
        while (count < text.size() && (width -= LetterWidth(text[count], font)) >= 0)
            ++count;
        return count;
    }

private:
    static int LetterWidth(char c, PaperFont font) {
        const bool narrow = std::string_view(" .,:;'!|ijlt").find(c) != std::string_view::npos;
        const bool wide = std::string_view("mwMW@%").find(c) != std::string_view::npos;
        return font.points * ((narrow ? 10 : wide ? 32 : 19) + (font.bold ? 2 : 0));
    }

    PaperRect size_;
    int unreachable_;
};

using FakePaper = FakeSheet<Paper>;

// Keeps what was printed. Without a paper the user gives up; with a failure there is no printer, or it breaks
// down while it prints.
class FakePrinter : public Printer {
public:
    std::unique_ptr<PrintJob> Ask(const std::string& documentName, Orientation orientation) override {
        asked.push_back(documentName + (orientation == Orientation::Landscape ? ", landscape" : ""));
        if (missing) throw RuntimeError(ErrorNumber::DeviceError, "There is no printer.");
        if (cancelled) return nullptr;
        PaperRect size{0, 0, 21000, 29700};
        if (orientation == Orientation::Landscape) std::swap(size.right, size.bottom);
        return std::make_unique<Job>(*this, size);
    }

    bool missing = false;
    bool cancelled = false;
    bool broken = false;
    std::vector<std::string> asked;
    std::vector<PaperPage> printed;

private:
    class Job : public FakeSheet<PrintJob> {
    public:
        Job(FakePrinter& printer, PaperRect size) : FakeSheet(size), printer_(printer) {}
        bool Print(const std::vector<PaperPage>& pages) override {
            if (printer_.broken) throw RuntimeError(ErrorNumber::DeviceError, "The printer does not answer.");
            printer_.printed = pages;
            return true;
        }

    private:
        FakePrinter& printer_;
    };
};

}  // namespace kaz
