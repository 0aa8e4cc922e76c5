#include "MainWindowFixture.h"

#include "base/Text.h"
#include "ui/FormFactory.h"

namespace kaz {

MainWindowFixture::MainWindowFixture() {
    app.log.OverrideLogFilename("C:\\KAZ\\Log_KAZ.txt");
    app.settingsFileName = "C:\\KAZ\\Kaz.ini";
    app.settingsInitialised = true;
    app.settings.StoreSetting("Owner", std::string("Smith"));
    app.layers.LoadLayers();
    app.events = std::make_unique<clsDbXml>(app.Storage());
    app.shared = std::make_unique<clsDbXml>(app.Storage());
    app.expired = std::make_unique<clsDbXml>(app.Storage());
    app.events->LoadDB("C:\\KAZ\\Events.xml");
    app.expired->LoadDB("C:\\KAZ\\Expired.xml");
}

clsEvent& MainWindowFixture::Add(clsDbXml& database, const std::string& description, int days) {
    const std::string code = std::to_string(100000 + database.RecordCount());
    clsEvent& event = database.AllEvents().emplace_back(OneOff(code, description, kToday.PlusDays(days)));
    event.Owner("Smith");
    return event;
}

void MainWindowFixture::ShareAsAnn(const std::vector<clsEvent>& events) {
    machine.files.Put("C:\\Share\\KAZShared.ini", "Smith\r\nAnn\r\n");
    app.settings.StoreSetting("SharedDataPath", std::string("C:\\Share"));
    clsDbXml ann(app.Storage());
    ann.SetDBFilename("C:\\Share\\Shared_Ann.xml");
    ann.AllEvents() = events;
    ASSERT_TRUE(ann.SaveDB());
}

void MainWindowFixture::Open() {
    main = MakeMainWindow(app, *this);
    window = machine.windows.Newest(IDD_MAIN);
}

void MainWindowFixture::OpenAndTick() {
    Open();
    machine.windows.Advance(1);
}

std::string MainWindowFixture::Column(int column) {
    std::string texts;
    for (const std::string& text : List().Column(column))
        texts.append(texts.empty() ? "" : "|").append(text);
    return texts;
}

std::string MainWindowFixture::Logged() {
    std::string texts;
    const std::string log = machine.files.Text("C:\\KAZ\\Log_KAZ.txt");
    for (const std::string_view line : Split(std::string_view(log).substr(logRead_), kLineBreak))
        if (const std::size_t comma = line.find(", "); comma != std::string_view::npos)
            texts.append(line.substr(comma + 2)).append("\n");
    logRead_ = log.size();
    return texts;
}

std::vector<std::string> MainWindowFixture::Reminders(const std::string& caption) const {
    const FakeWindow* reminder = machine.windows.WithCaption(caption);
    return reminder ? reminder->Items(IDC_lstReminders) : std::vector<std::string>{};
}

}  // namespace kaz
