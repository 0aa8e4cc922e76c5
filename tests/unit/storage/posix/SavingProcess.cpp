#include "unit/storage/SavingProcess.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

namespace kaz {

struct SavingProcess::Process {
    pid_t id = 0;
    int pipe[2] = {-1, -1};
};

void SavingProcess::SaveIfStartedForThat(const Save& /*save*/) {}

SavingProcess::SavingProcess(const Save& save, const std::string& folder, int generation)
    : process_(std::make_unique<Process>()) {
    const auto& pipe = process_->pipe;
    if (::pipe(process_->pipe) != 0) throw std::runtime_error("no pipe");
    process_->id = fork();
    if (process_->id == 0) {
        while (save(folder, generation) && write(pipe[1], &generation, sizeof generation) > 0)
            ++generation;
        _exit(1);
    }
    close(pipe[1]);
}

SavingProcess::~SavingProcess() {
    Kill();
    close(process_->pipe[0]);
}

int SavingProcess::NextSaved() {
    int generation = 0;
    return read(process_->pipe[0], &generation, sizeof generation) == sizeof generation ? generation : 0;
}

void SavingProcess::Kill() {
    if (process_->id == 0) return;
    ::kill(process_->id, SIGKILL);
    ::waitpid(process_->id, nullptr, 0);
    process_->id = 0;
}

}  // namespace kaz
