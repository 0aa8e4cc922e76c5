#pragma once

#include <windows.h>
#include <objbase.h>

namespace kaz {

// COM for the thread that makes it, as a thread with windows wants it.
class Apartment {
public:
    Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

}  // namespace kaz
