// The system's DLLs that come with the first call into them come from the system's folder. Without this they
// would be looked for beside the program first, which may have been unpacked among other people's downloads.
// Nothing is said here about where the rest of the program looks: it may be somebody else's, with this
// component in it.

#include <windows.h>
#include <delayimp.h>

namespace {

FARPROC WINAPI LoadFromSystem(unsigned what, PDelayLoadInfo info) {
    if (what != dliNotePreLoadLibrary) return nullptr;
    HMODULE library = LoadLibraryExA(info->szDll, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    // A null would mean that it is to be looked for in the usual way.
    if (!library)
        RaiseException(VcppException(ERROR_SEVERITY_ERROR, ERROR_MOD_NOT_FOUND), EXCEPTION_NONCONTINUABLE, 0,
                       nullptr);
    return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(library));
}

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming,bugprone-reserved-identifier): the name that the loader asks
PfnDliHook __pfnDliNotifyHook2 = LoadFromSystem;
