#include "../SoakMachine.h"

#include "fakes/FakePlatform.h"
#include "resources/resource.h"

#if defined(__SANITIZE_ADDRESS__)
// Of the sanitizer's run-time library, whose headers not every compiler's package has.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();  // NOLINT(bugprone-reserved-identifier)
#elif defined(__GLIBC__)
#include <malloc.h>
#endif

namespace kaz {

namespace {

std::size_t HeapBytes() {
#if defined(__SANITIZE_ADDRESS__)
    return __sanitizer_get_current_allocated_bytes();
#elif defined(__GLIBC__)
    return mallinfo2().uordblks;
#else
    return 0;  // tools/soak looks at a Windows process from inside
#endif
}

template <class... Records>
void Forget(Records&... records) {
    (Records().swap(records), ...);
}

class FakeMachine : public SoakMachine {
public:
    Platform Services() override {
        fakes_.UseWindows(stage->Windows());
        return fakes_.Services();
    }
    std::string Folder() const override { return fakes_.system.moduleFolder; }
    void PassAnHour() override {
        for (int half = 0; half < 120; ++half) {
            fakes_.clock.now = DateValue::FromSerial(fakes_.clock.now.Serial() + 30.0 / 86400);
            stage->Wait(30000);
        }
    }
    int Rounds() const override { return 48; }
    std::map<std::string, Count> Counts() override {
        std::size_t alive = 0;
        const auto& windows = dynamic_cast<FakeWindowFactory&>(stage->Windows());
        for (int dialog = IDD_REMINDER; dialog <= IDD_UNSAVED; ++dialog)
            alive += windows.All(dialog).size();
        // What the fakes have written down is not the program's; the mark of the
        // running program grows on the disk.
        Forget(fakes_.dialogs.messages, fakes_.dialogs.questions, fakes_.sound.calls,
               windows.Newest(IDD_MAIN)->acts);
        return {{"windows", {alive, 0}},
                {"open files", {static_cast<std::size_t>(fakes_.files.OpenFiles()), 0}},
                // Of two days 48 answers, which are kept for two weeks.
                {"bytes", {HeapBytes(), 8192 + 48 * 800}}};
    }

private:
    FakePlatform fakes_;
};

}  // namespace

std::unique_ptr<SoakMachine> SoakMachine::Make() { return std::make_unique<FakeMachine>(); }

}  // namespace kaz
