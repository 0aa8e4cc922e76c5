#include "ui/event/DescriptionControls.h"

#include "base/Utf8.h"
#include "ui/fields/FieldFault.h"
#include "ui/fields/FieldReading.h"

#include <cstddef>
#include <string_view>

namespace kaz {

namespace {

// Lines at the start in which nothing stands.
std::string_view WithoutBlankStart(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return {};
    const std::size_t line = text.rfind('\n', first);
    return line == std::string_view::npos ? text : text.substr(line + 1);
}

}  // namespace

void DescriptionControls::ShowNew() {
    // One more than can be saved, so that saving knows of what was cut off and tells.
    txtDesc.MaxLength(static_cast<int>(clsEvent::kLongestShown) + 1);
}

void DescriptionControls::Show(const clsEvent& event) {
    std::string text(event.DescShown());
    if (event.IsDescCut()) {
        text = "[This description is too long to be changed here: it has " +
               std::to_string(Utf16Length(event.Desc())) +
               " characters. KAZ keeps it whole, and shows the first " +
               std::to_string(clsEvent::kLongestShown) + ".]\r\n" + text;
        txtDesc.Enabled(false);
    }
    txtDesc.Text(text);
    shown_ = txtDesc.Text();
}

void DescriptionControls::Take(clsEvent& event) const {
    const std::string text = TypedText(txtDesc);
    if (!event.IDCode.empty() && text == shown_) return;
    if (Utf16Length(text) > clsEvent::kLongestShown)
        throw FieldFault(
            IDC_txtDesc,
            "The description is too long: it can have " + std::to_string(clsEvent::kLongestShown) +
                " characters. What was pasted beyond them is not in the field; please shorten it");
    event.Desc(std::string(WithoutBlankStart(text)));
}

}  // namespace kaz
