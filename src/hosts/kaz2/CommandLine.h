#pragma once

#include <span>
#include <string>

namespace kaz {

// KAZ2 [FOLDER] [--lists FILE] [--silent], or KAZ2 [FOLDER] with --show, --quit or --add TEXT. All that
// follows --add is its text, with or without quotation marks.
struct CommandLine {
    std::wstring folder;     // of the data; empty when none was given
    std::wstring listsFile;  // where the lists of each scan are written; empty for nowhere
    bool silent = false;     // nobody asked for a window: the system starts it again
    bool show = false;       // the main window, also where the start would be silent
    bool quit = false;       // the program that runs is to end
    bool add = false;
    std::wstring text;  // of --add: an event in words
};

// What follows the program's name when it is to start silently on that folder.
std::wstring SilentArguments(const std::wstring& folder);

// `words` are those of the whole command line, the program's own name included.
CommandLine ParseCommandLine(std::span<const wchar_t* const> words);

}  // namespace kaz
