#include "../SoakMachine.h"

#include "../../forms/win32/RealWindow.h"
#include "fakes/TestFolder.h"
#include "forms/win32/Win32Platform.h"
#include "platform/Clock.h"
#include "resources/resource.h"

#include <windows.h>
#include <winternl.h>

#include <array>
#include <cstdint>

namespace kaz {

namespace {

// Asked one by one: not every system that runs Windows programs counts them.
std::size_t Handles() {
    constexpr std::uintptr_t kEnd = 0x8000;
    std::size_t count = 0;
    for (std::uintptr_t value = 4; value < kEnd; value += 4) {
        DWORD flags = 0;
        count += GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags) != FALSE;
    }
    return count;
}

// Where the system does not tell (Wine), its table does: in the process's environment block at that place,
// one entry of 24 bytes an object, whose kind stands at the byte 12 and is 0 when the entry is free.
std::size_t GdiObjectsInTable() {
    constexpr std::size_t kTablePlace = 0xF8, kEntrySize = 24, kKindPlace = 12, kEntries = 0x4000;
    const auto* block = reinterpret_cast<const unsigned char*>(NtCurrentTeb()->ProcessEnvironmentBlock);
    const auto* table = *reinterpret_cast<const unsigned char* const*>(block + kTablePlace);
    std::size_t count = 0;
    for (std::size_t i = 0; table && i < kEntries; ++i)
        count += table[i * kEntrySize + kKindPlace] != 0;
    return count;
}

std::size_t GdiObjects() {
    const DWORD count = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    return count ? count : GdiObjectsInTable();
}

BOOL CALLBACK CountWindow(HWND, LPARAM count) {
    ++*reinterpret_cast<std::size_t*>(count);
    return TRUE;
}

BOOL CALLBACK CountWithControls(HWND window, LPARAM count) {
    EnumChildWindows(window, CountWindow, count);
    return CountWindow(window, count);
}

std::size_t HeapBytes() {
    std::array<HANDLE, 64> heaps{};
    const DWORD found = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    std::size_t bytes = 0;
    for (DWORD i = 0; i < found && i < heaps.size(); ++i) {
        HeapLock(heaps[i]);
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heaps[i], &entry))
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) bytes += entry.cbData;
        HeapUnlock(heaps[i]);
    }
    return bytes;
}

// The system's time, set forward as far as the test wants.
class ShiftedClock : public Clock {
public:
    DateValue Now() const override { return clock_.Now().PlusMinutes(minutes); }
    double SecondsSinceMidnight() const override { return Now().SecondOfDay(); }
    DateValue LocalOf(DateValue utc) const override { return clock_.LocalOf(utc); }
    int minutes = 0;

private:
    Win32Clock clock_;
};

class RealMachine : public SoakMachine {
public:
    Platform Services() override {
        Platform real = machine_.Services();
        return {clock_,       real.dialogs,     real.files,  real.locale, stage->Pump(),
                real.printer, real.random,      real.screen, real.shell,  real.sound,
                real.system,  stage->Windows(), real.zip};
    }
    std::string Folder() const override { return folder_.Path().string(); }
    void PassAnHour() override { clock_.minutes += 60 - clock_.Now().SecondOfDay() / 60 % 60; }
    int Rounds() const override { return 3; }
    std::map<std::string, Count> Counts() override {
        // Where the pointer stands is chance: the main window makes its tooltips now, if it has not yet.
        const HWND main = HandleOf(*stage->Find(IDD_MAIN));
        SendMessageW(main, WM_SETCURSOR, reinterpret_cast<WPARAM>(main), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        std::size_t windows = 0;
        EnumThreadWindows(GetCurrentThreadId(), CountWithControls, reinterpret_cast<LPARAM>(&windows));
        return {{"windows", {windows, 0}},
                {"handles", {Handles(), 2}},
                {"GDI objects", {GdiObjects(), 2}},
                {"bytes in heaps", {HeapBytes(), 32768}}};
    }

private:
    TestFolder folder_;
    Win32Platform machine_{GetModuleHandleW(nullptr)};
    ShiftedClock clock_;
};

}  // namespace

std::unique_ptr<SoakMachine> SoakMachine::Make() { return std::make_unique<RealMachine>(); }

}  // namespace kaz
