#pragma once

#include "platform/FileSystem.h"

namespace kaz {

bool FileExists(const FileSystem& files, const std::string& path);
bool FolderExists(const FileSystem& files, const std::string& path);

// The whole file as bytes. Throws as FileSystem does.
std::string ReadWholeFile(FileSystem& files, const std::string& path);
// Reads a file that is not there as empty.
std::string ReadFileOrEmpty(FileSystem& files, const std::string& path);

// Whether the bytes can be a text of ours: no zero is in it, as in what a disk has lost, and in UTF-16.
bool IsText(std::string_view bytes);

// Appends the text in one open, write and close; creates the file when it is missing.
void AppendText(FileSystem& files, const std::string& path, std::string_view text);

// Puts the text in the place of the file, whole or not at all (see SafeFileWriter).
void WriteWholeFile(FileSystem& files, const std::string& path, std::string_view text);

bool IsForbiddenInFileName(char c);
// `folder` and `name` with exactly one backslash between them.
std::string JoinPath(std::string_view folder, std::string_view name);
// Without its trailing backslashes, but a drive's root keeps the one that makes it a root.
std::string WithoutTrailingBackslash(std::string_view folder);
// What stands before and after the last backslash (or slash, or drive colon); the folder is without it,
// unless it is a root.
std::string FolderOf(std::string_view path);
std::string FileNameOf(std::string_view path);
// The path with the extension of its file name, dot included, replaced by `extension` (such as ".dat").
std::string WithExtension(std::string_view path, std::string_view extension);

}  // namespace kaz
