#pragma once

#include <string>
#include <vector>

namespace kaz {

// A PostScript printer, installed as the default one; what it prints becomes pictures, in grey.
class TestPrinter {
public:
    // Dots an inch of the pictures.
    static constexpr int kResolution = 60;

    struct Sheet {
        int width = 0;
        int height = 0;
        std::vector<unsigned char> dots;  // a byte each, the top line first; 255 is white
        bool IsWhite(int left, int top, int right, int bottom) const;
    };

    // `name` is that of the pictures of the next document.
    explicit TestPrinter(const std::string& name);

    // The pages of the document that was printed; empty when none has come within some seconds.
    std::vector<Sheet> Sheets() const;

private:
    std::string name_;
};

}  // namespace kaz
