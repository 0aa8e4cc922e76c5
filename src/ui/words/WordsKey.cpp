#include "ui/words/WordsKey.h"

namespace kaz {

namespace {
constexpr const char* kNotice = "The key for a new event";
}

const std::vector<std::string>& WordsKey::Choices() {
    static const std::vector<std::string> choices{"Ctrl+Alt+K",   "Ctrl+Alt+N",     "Ctrl+Shift+K",
                                                  "Ctrl+Shift+N", "Ctrl+Alt+Space", "Ctrl+Alt+F12",
                                                  "Win+Shift+K"};
    return choices;
}

void WordsKey::Apply() {
    const std::string keys = app_.settings.TextOr("WordsKey", "");
    if (window_.SetHotKey(keys)) {
        app_.health.Clear(kNotice);
        return;
    }
    app_.health.Tell({kNotice,
                      Health::Weight::Note,
                      keys + " cannot open the line for a new event: another program has this key. Please "
                             "choose another one in the settings, or none.",
                      {{"Settings", openOptions_}},
                      Health::Sign::None});
}

}  // namespace kaz
