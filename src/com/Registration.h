#pragma once

#include <windows.h>

namespace kaz {

// Tells the system about the component and its type library: for all users, or, without the rights for that,
// for this user alone.
HRESULT RegisterComponent();
// Forgets both. What was never registered is no failure.
HRESULT UnregisterComponent();

}  // namespace kaz
