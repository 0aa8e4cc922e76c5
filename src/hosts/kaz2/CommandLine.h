#pragma once

#include <span>
#include <string>

namespace kaz {

// KAZ2 [FOLDER] [--lists FILE]
struct CommandLine {
    std::wstring folder;     // of the data; empty when none was given
    std::wstring listsFile;  // where the lists of each scan are written; empty for nowhere
};

// `words` are those of the whole command line, the program's own name included.
CommandLine ParseCommandLine(std::span<const wchar_t* const> words);

}  // namespace kaz
