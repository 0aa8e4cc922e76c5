// Any bytes as the file of the tasks, or as the plain file from before it: no task that was read is lost by
// saving, and what has been saved once stays the same.

#include "base/RuntimeError.h"
#include "fakes/MemoryFileSystem.h"
#include "fuzz/Require.h"
#include "storage/TaskFile.h"

#include <algorithm>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kaz;
    if (size == 0) return 0;
    MemoryFileSystem files;
    const bool plain = data[0] == 'P';
    files.Put(plain ? "C:\\tasklist.dat" : "C:\\tasklist.xml",
              std::string(reinterpret_cast<const char*>(data), size));
    TaskFile file(files, "C:");
    std::vector<std::string> tasks;
    try {
        tasks = file.Load();
    } catch (const RuntimeError&) {
        return 0;  // damaged
    }
    Require(!file.Changed(), "changed by nobody");
    file.Save(tasks);
    const std::string saved = files.Text("C:\\tasklist.xml");
    // A text with the file's own tags cannot be told from them.
    const auto hasTag = [](const std::string& task) { return task.find('<') != std::string::npos; };
    if (std::any_of(tasks.begin(), tasks.end(), hasTag)) return 0;
    Require(TaskFile(files, "C:").Load() == tasks, "a task was lost");
    file.Save(file.Load());
    Require(files.Text("C:\\tasklist.xml") == saved, "saving again changes the file");
    return 0;
}
