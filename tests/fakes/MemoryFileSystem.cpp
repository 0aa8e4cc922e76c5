#include "fakes/MemoryFileSystem.h"

#include "base/CaseFolding.h"
#include "fakes/MemoryFile.h"
#include "platform/Files.h"

#include <algorithm>
#include <utility>

namespace kaz {

namespace {

std::string Clean(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    return WithoutTrailingBackslash(path);
}

std::string KeyOf(const std::string& path) { return CaseFolding::Letters().Lower(Clean(path)); }

std::shared_ptr<MemoryFileSystem::Node> NewNode(const std::string& path) {
    const auto node = std::make_shared<MemoryFileSystem::Node>();
    node->name = Clean(path);
    return node;
}

bool IsRoot(const std::string& path) {
    const std::string clean = Clean(path);
    return clean == "\\" || (clean.size() <= 3 && clean.size() >= 2 && clean[1] == ':');
}

}  // namespace

PathKind MemoryFileSystem::Kind(const std::string& path) const {
    const NodePointer node = Find(path);
    if (!node) return IsRoot(path) ? PathKind::Folder : PathKind::Missing;
    return node->folder ? PathKind::Folder : PathKind::File;
}

std::optional<FileTime> MemoryFileSystem::ModificationTime(const std::string& path) const {
    const NodePointer node = Find(path);
    return node ? std::optional(node->time) : std::nullopt;
}

bool MemoryFileSystem::IsReadOnly(const std::string& path) const {
    const NodePointer node = Find(path);
    return node && node->readOnly;
}

std::unique_ptr<InputFile> MemoryFileSystem::OpenForReading(const std::string& path) {
    faults.Operation();
    if (Kind(FolderOf(Clean(path))) == PathKind::Missing) throw RuntimeError(ErrorNumber::PathNotFound);
    const NodePointer node = Find(path);
    if (!node) throw RuntimeError(ErrorNumber::FileNotFound);
    if (node->folder) throw RuntimeError(ErrorNumber::PathFileAccess);
    if (node->locked) throw RuntimeError(ErrorNumber::PermissionDenied);
    return std::make_unique<MemoryInput>(*this, node);
}

std::unique_ptr<OutputFile> MemoryFileSystem::Create(const std::string& path) {
    return std::make_unique<MemoryOutput>(*this, Opened(path, true));
}

std::unique_ptr<OutputFile> MemoryFileSystem::OpenForAppending(const std::string& path) {
    return std::make_unique<MemoryOutput>(*this, Opened(path, false));
}

std::unique_ptr<OutputFile> MemoryFileSystem::OpenAlone(const std::string& path) {
    const NodePointer node = Opened(path, false);
    if (node->open > 0) throw RuntimeError(ErrorNumber::PermissionDenied);
    return std::make_unique<MemoryOutput>(*this, node);
}

void MemoryFileSystem::Replace(const std::string& from, const std::string& to) {
    faults.Operation();
    const NodePointer source = Find(from);
    if (!source) throw RuntimeError(ErrorNumber::FileNotFound);
    CheckFolderOf(to);
    const NodePointer target = Find(to);
    if (target && target->folder) throw RuntimeError(ErrorNumber::PathFileAccess);
    const auto held = [](const Node& node) { return node.readOnly || node.locked || node.open > 0; };
    if (held(*source) || (target && held(*target))) throw RuntimeError(ErrorNumber::PermissionDenied);
    nodes_.erase(KeyOf(from));
    source->name = Clean(to);
    nodes_[KeyOf(to)] = source;
}

void MemoryFileSystem::Delete(const std::string& path) {
    faults.Operation();
    const NodePointer node = Find(path);
    if (!node) throw RuntimeError(ErrorNumber::FileNotFound);
    if (node->folder) throw RuntimeError(ErrorNumber::PathFileAccess);
    CheckFolderOf(path);
    if (node->readOnly || node->locked || node->open > 0) throw RuntimeError(ErrorNumber::PermissionDenied);
    nodes_.erase(KeyOf(path));
}

void MemoryFileSystem::CreateFolder(const std::string& path) {
    faults.Operation();
    const PathKind kind = Kind(path);
    if (kind == PathKind::Folder) return;
    if (kind != PathKind::Missing) throw RuntimeError(ErrorNumber::PathFileAccess);
    const std::string parent = FolderOf(Clean(path));
    if (parent.empty()) throw RuntimeError(ErrorNumber::PathNotFound);
    if (!IsRoot(parent)) CreateFolder(parent);
    CheckFolderOf(path);
    nodes_[KeyOf(path)] = NewNode(path);
    At(path).folder = true;
}

std::vector<std::string> MemoryFileSystem::FilesIn(const std::string& folder) const {
    std::vector<std::string> names;
    for (const std::string& path : Files())
        if (KeyOf(FolderOf(path)) == KeyOf(folder)) names.push_back(FileNameOf(path));
    return names;
}

void MemoryFileSystem::Put(const std::string& path, std::string text) {
    FaultInjector none;
    std::swap(faults, none);
    CreateFolder(FolderOf(Clean(path)));
    std::swap(faults, none);
    const NodePointer node = Find(path) ? Find(path) : NewNode(path);
    node->onDisk = node->text = std::move(text);
    Touch(*node);
    nodes_[KeyOf(path)] = node;
}

std::string MemoryFileSystem::Text(const std::string& path) const {
    const NodePointer node = Find(path);
    return node ? node->text : std::string();
}

std::vector<std::string> MemoryFileSystem::Files() const {
    std::vector<std::string> names;
    for (const auto& [key, node] : nodes_)
        if (!node->folder) names.push_back(node->name);
    return names;
}

void MemoryFileSystem::Remove(const std::string& path) { nodes_.erase(KeyOf(path)); }

MemoryFileSystem::Node& MemoryFileSystem::At(const std::string& path) {
    const NodePointer node = Find(path);
    if (!node) throw RuntimeError(ErrorNumber::FileNotFound);
    return *node;
}

void MemoryFileSystem::LosePower() {
    for (const auto& [key, node] : nodes_)
        node->text = node->onDisk;
}

int MemoryFileSystem::OpenFiles() const {
    int open = 0;
    for (const auto& [key, node] : nodes_)
        open += node->open;
    return open;
}

MemoryFileSystem::NodePointer MemoryFileSystem::Find(const std::string& path) const {
    if (looked) looked(path);
    const auto found = nodes_.find(KeyOf(path));
    return found == nodes_.end() ? nullptr : found->second;
}

MemoryFileSystem::NodePointer MemoryFileSystem::Opened(const std::string& path, bool empty) {
    faults.Operation();
    NodePointer node = Find(path);
    if (node && node->folder) throw RuntimeError(ErrorNumber::PathFileAccess);
    if (node && (node->readOnly || node->locked)) throw RuntimeError(ErrorNumber::PermissionDenied);
    if (!node) {
        CheckFolderOf(path);
        node = nodes_[KeyOf(path)] = NewNode(path);
        Touch(*node);
    } else if (empty) {
        // On a disk, emptying a file is not held back until somebody flushes it.
        node->text.clear();
        node->onDisk.clear();
        Touch(*node);
    }
    return node;
}

void MemoryFileSystem::CheckFolderOf(const std::string& path) const {
    const std::string folder = FolderOf(Clean(path));
    if (Kind(folder) != PathKind::Folder) throw RuntimeError(ErrorNumber::PathNotFound);
    if (IsReadOnly(folder)) throw RuntimeError(ErrorNumber::PermissionDenied);
}

void MemoryFileSystem::Touch(Node& node) {
    constexpr std::int64_t kUnitsPerSecond = 10'000'000;
    constexpr std::int32_t kDaysFrom1601 = 109205;  // to the zero of our dates
    if (!times) {
        node.time = ++counter_;
        return;
    }
    const DateValue now = times->Now();
    const std::int64_t days = std::int64_t{now.Day()} + kDaysFrom1601;
    node.time = (days * DateValue::kSecondsPerDay + now.SecondOfDay()) * kUnitsPerSecond;
}

}  // namespace kaz
