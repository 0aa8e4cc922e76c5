#include "FormTest.h"

#include "base/Text.h"
#include "ui/FormFactory.h"

namespace kaz {

namespace {

std::string Join(const std::vector<std::string>& texts) {
    std::string all;
    for (std::size_t i = 0; i < texts.size(); ++i)
        all.append(i > 0 ? "|" : "").append(texts[i]);
    return all;
}

}  // namespace

FormTest::FormTest() : app(Services()) {
    app.log.OverrideLogFilename("C:\\KAZ\\Log_KAZ.txt");
    app.runtimePath = "C:\\KAZ";
    app.settingsFileName = "C:\\KAZ\\Kaz.ini";
    app.settingsInitialised = true;
    app.settings.StoreSetting("Owner", std::string("Smith"));
    app.layers.LoadLayers();
    machine.files.Put("C:\\KAZ\\alarm.wav", SampleWave());
    app.MakeDatabases();
    app.events->LoadDB(kEventFile);
    app.expired->LoadDB("C:\\KAZ\\Expired.xml");
}

Platform FormTest::Services() {
    machine.UseWindows(stage->Windows());
    machine.pump.waiting = [this] { stage->Pump().ProcessPending(); };
    return machine.Services();
}

clsEvent& FormTest::Add(clsDbXml& database, const std::string& description, int days, int category) {
    const std::string code = std::to_string(100000 + database.RecordCount());
    clsEvent& event = Changing(database).emplace_back(OneOff(code, description, kToday.PlusDays(days)));
    event.Owner("Smith");
    event.Layer(static_cast<std::int16_t>(category));
    return event;
}

void FormTest::ShareAsAnn(const std::vector<clsEvent>& events) {
    machine.files.Put("C:\\Share\\KAZShared.ini", "Smith\r\nAnn\r\n");
    machine.files.Put("C:\\Share\\Shared_Ann.xml", FileOf(events));
    app.settings.StoreSetting("SharedDataPath", std::string("C:\\Share"));
}

void FormTest::SaveElsewhere(const clsEvent& event) {
    clsDbXml other(app.Storage());
    other.LoadDB(kEventFile);
    other.StoreRecord(event, true);
    ASSERT_TRUE(other.SaveDB());
}

void FormTest::OpenMain() {
    main = MakeMainWindow(app, *this);
    TurnTo(IDD_MAIN);
}

void FormTest::OpenMainAndTick() {
    OpenMain();
    Tick();
}

void FormTest::InModal(int dialog, const std::function<void()>& user) {
    stage->OnModal(dialog, [this, user](Window& modal) {
        Window* const before = std::exchange(window, &modal);
        user();
        window = before;
    });
}

std::string FormTest::Column(int column) const {
    return Join(stage->Column(*window, IDC_ListEvents, column));
}

std::string FormTest::Selected() const {
    const auto all = stage->Column(*window, IDC_ListEvents, kEventColumn);
    std::vector<std::string> selected;
    for (const int row : List().Selection())
        selected.push_back(all.at(static_cast<std::size_t>(row)));
    return Join(selected);
}

Window* FormTest::Reminder(const std::string& caption) const {
    for (Window* reminder : stage->All(IDD_REMINDER))
        if (reminder->Text(0) == caption) return reminder;
    return nullptr;
}

std::vector<std::string> FormTest::Reminders(const std::string& caption) const {
    const Window* reminder = Reminder(caption);
    return reminder ? reminder->Items(IDC_lstReminders) : std::vector<std::string>{};
}

std::string FormTest::Logged() {
    std::string texts;
    const std::string log = Saved("C:\\KAZ\\Log_KAZ.txt");
    for (const std::string_view line : Split(std::string_view(log).substr(logRead_), kLineBreak))
        if (const std::size_t comma = line.find(", "); comma != std::string_view::npos)
            texts.append(line.substr(comma + 2)).append("\n");
    logRead_ = log.size();
    return texts;
}

}  // namespace kaz
