// bench_program_stopwatch PROGRAM [ARGUMENT...]
//
// Runs the program once without input and with its output going nowhere, and prints its nanoseconds, the most
// memory it used in KB, and its result. A process of its own, since a program's most memory counts from that
// of the process that started it.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>

int main(int count, char** arguments) {
    if (count < 2) return 2;
    const int nowhere = open("/dev/null", O_RDWR);
    const auto begin = std::chrono::steady_clock::now();
    const pid_t child = vfork();
    if (child == 0) {
        dup2(nowhere, STDIN_FILENO);
        dup2(nowhere, STDOUT_FILENO);
        execvp(arguments[1], arguments + 1);
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    const std::chrono::nanoseconds took = std::chrono::steady_clock::now() - begin;
    std::printf("%lld %ld %d\n", static_cast<long long>(took.count()), usage.ru_maxrss,
                WIFEXITED(status) ? WEXITSTATUS(status) : 128);
    return 0;
}
