#pragma once

#include "platform/Paper.h"

#include <string>
#include <utility>
#include <vector>

namespace kaz {

// The pages of one document: the margins, the heading on each page and the page numbers at the foot.
class PageFrame {
public:
    // `note` stands at the right of the heading, or under it when both do not fit beside each other.
    // `paper` outlives the object. Throws DeviceError when the paper is too small for anything.
    PageFrame(const Paper& paper, std::string title, std::string note);

    // What is between heading and foot; the same on every page.
    const PaperRect& Area() const { return area_; }
    // It is valid until the next one is added.
    PaperPage& AddPage();
    // Puts "Page 1 of 3" at the foot of each.
    void NumberPages();
    std::vector<PaperPage> TakePages() && { return std::move(pages_); }

private:
    void AddHeading(PaperPage& page) const;
    bool NoteBeside() const;

    const Paper& paper_;
    std::string title_;
    std::string note_;
    PaperRect margins_;
    PaperRect area_;
    std::vector<PaperPage> pages_;
};

}  // namespace kaz
