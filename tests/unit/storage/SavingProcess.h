#pragma once

#include <functional>
#include <memory>
#include <string>

namespace kaz {

// A process of this program that saves one generation of the files after the other until it is killed.
class SavingProcess {
public:
    // Saves the generation and tells whether that went well.
    using Save = std::function<bool(const std::string& folder, int generation)>;

    // Where the system cannot split a process in two, this program is started anew, up to this call in the
    // same test, from which it does not return.
    static void SaveIfStartedForThat(const Save& save);

    SavingProcess(const Save& save, const std::string& folder, int generation);
    ~SavingProcess();
    SavingProcess(const SavingProcess&) = delete;
    SavingProcess& operator=(const SavingProcess&) = delete;

    // The generation that was saved next; 0 when the process has come to its end.
    int NextSaved();
    // In the middle of whatever it does.
    void Kill();

private:
    struct Process;
    std::unique_ptr<Process> process_;
};

}  // namespace kaz
