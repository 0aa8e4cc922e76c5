// A backup as one process, to be timed beside "zip -j ARCHIVE FILE...":
//   bench_program_backup ARCHIVE FILE...

#include "platform/posix/PosixFileSystem.h"
#include "platform/zip/LibzipArchiver.h"

#include <cstdio>

int main(int count, char** arguments) {
    if (count < 3) return 2;
    kaz::PosixFileSystem files;
    kaz::LibzipArchiver archiver(files);
    const int result = archiver.ZpArchive(arguments[1], {arguments + 2, arguments + count});
    if (result != kaz::kZipSuccess) std::fprintf(stderr, "%s\n", archiver.LastMessage().c_str());
    return result;
}
