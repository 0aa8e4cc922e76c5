#include "BenchProgram.h"

#include "Timing.h"
#include "platform/Files.h"
#include "resources/resource.h"
#include "ui/FormFactory.h"
#include "win32/Text.h"

#include <string>

namespace kaz {
namespace {

std::string TemporaryFolder() {
    wchar_t path[MAX_PATH]{};
    GetTempPathW(MAX_PATH, path);
    return JoinPath(ToUtf8(path), "kaz-bench");
}

}  // namespace

BenchProgram::BenchProgram() {
    app_.platform.files.CreateFolder(TemporaryFolder());
    app_.runtimePath = TemporaryFolder();
    app_.log.OverrideLogFilename(JoinPath(app_.runtimePath, "Log_KAZ.txt"));
    app_.settings.StoreSetting("Owner", std::string("Smith"));
    app_.settings.StoreSetting("DataPath", app_.runtimePath);
    app_.layers.LoadLayers();
    app_.MakeDatabases();
    app_.events->LoadDB(JoinPath(app_.runtimePath, "Events.xml"));
    app_.expired->LoadDB(JoinPath(app_.runtimePath, "Expired.xml"));
    main_ = MakeMainWindow(app_, *this);
    main_->ShowWindow();
    list_ = GetDlgItem(FindWindowW(nullptr, L"KAZ"), IDC_ListEvents);
    Sleep(50);
    Pump();  // the first tick
}

BenchProgram::~BenchProgram() {
    main_->Unload();
    app_.platform.files.Delete(JoinPath(app_.runtimePath, "Log_KAZ.txt"));
}

void BenchProgram::Events(int count) {
    std::vector<clsEvent> events;
    unsigned random = 12345;
    for (int i = 0; i < count; ++i) {
        random = random * 1664525U + 1013904223U;
        clsEvent event;
        event.IDCode = std::to_string(100000 + i);
        event.Desc("Event " + std::to_string(random) +
                   ": pay the café rent, see the e-mail of 3.2.; 50 percent deposit");
        event.Owner(i % 3 == 0 ? "Ann" : "Smith");
        event.Layer(static_cast<std::int16_t>(1 + random % 19));
        event.DueDate(app_.platform.clock.Today().PlusDays(1 + static_cast<int>((random >> 8) % 400)));
        events.push_back(event);
    }
    app_.events->ChangeEvents([&](std::vector<clsEvent>& all) { all = std::move(events); });
}

}  // namespace kaz
