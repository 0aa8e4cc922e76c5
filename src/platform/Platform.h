#pragma once

namespace kaz {

class Clock;
class Dialogs;
class FileSystem;
class Locale;
class MessagePump;
class Printer;
class Random;
class Screen;
class Shell;
class Sound;
class SystemInfo;
class WindowFactory;
class ZipArchiver;

// Everything that the program asks of the machine, handed over once at the start.
// The services outlive the program.
struct Platform {
    Clock& clock;
    Dialogs& dialogs;
    FileSystem& files;
    Locale& locale;
    MessagePump& pump;
    Printer& printer;
    Random& random;
    Screen& screen;
    Shell& shell;
    Sound& sound;
    SystemInfo& system;
    WindowFactory& windows;
    ZipArchiver& zip;
};

}  // namespace kaz
