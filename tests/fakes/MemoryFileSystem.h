#pragma once

#include "fakes/FaultInjector.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"

#include <functional>
#include <map>
#include <vector>

namespace kaz {

// Files in memory under Windows rules: letter case does not matter, "/" is as good as "\",
// a drive's root is always there, a folder has to be made before its files, and a file that
// is open cannot be replaced or deleted.
class MemoryFileSystem : public FileSystem {
public:
    struct Node {
        std::string name;  // as it was first written, without trailing backslash
        bool folder = false;
        std::string text;
        std::string onDisk;  // what a loss of power leaves: the text at the last Flush
        FileTime time = 0;
        bool readOnly = false;
        bool locked = false;  // somebody else holds it: neither read nor written nor deleted
        int open = 0;
    };

    PathKind Kind(const std::string& path) const override;
    std::optional<FileTime> ModificationTime(const std::string& path) const override;
    bool IsReadOnly(const std::string& path) const override;
    std::unique_ptr<InputFile> OpenForReading(const std::string& path) override;
    std::unique_ptr<OutputFile> Create(const std::string& path) override;
    std::unique_ptr<OutputFile> OpenForAppending(const std::string& path) override;
    std::unique_ptr<OutputFile> OpenAlone(const std::string& path) override;
    void Replace(const std::string& from, const std::string& to) override;
    void Delete(const std::string& path) override;
    void CreateFolder(const std::string& path) override;
    std::vector<std::string> FilesIn(const std::string& folder) const override;
    std::string CurrentFolder() const override { return "C:\\KAZ"; }

    // What a test does behind the program's back; no fault and no full disk stands in its way.
    // Puts the file and its folders there, written at a new time.
    void Put(const std::string& path, std::string text);
    // The text of a file; "" when there is none, so ask Kind when that matters.
    std::string Text(const std::string& path) const;
    // All files, in the order of their lower-cased paths.
    std::vector<std::string> Files() const;
    void Remove(const std::string& path);
    // The file or folder itself, for its marks. Throws FileNotFound.
    Node& At(const std::string& path);
    // What was not flushed is lost.
    void LosePower();
    // How many files are open now; 0 whenever no operation is running.
    int OpenFiles() const;

    std::function<void(const std::string& path)> looked;  // hears of each look at a path
    FaultInjector faults;          // each call of an interface above but for the const ones
    std::string fullFolder;        // nothing can be written in it or below; the rest of the disk has room
    const Clock* times = nullptr;  // where modification times come from; without it from a counter
    int written = 0;               // how often a file was opened for writing

private:
    friend class MemoryInput;
    friend class MemoryOutput;
    using NodePointer = std::shared_ptr<Node>;

    NodePointer Find(const std::string& path) const;
    NodePointer Opened(const std::string& path, bool empty);
    void CheckFolderOf(const std::string& path) const;
    void Touch(Node& node);

    std::map<std::string, NodePointer> nodes_;  // by lower-cased path
    FileTime counter_ = 1000;
};

}  // namespace kaz
