// A DLL under the name of one of the system's that lies beside a program. It has nothing of what is wanted of
// it: a program that takes it ends by that, if it is not found out before.

#include <windows.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID) { return TRUE; }
