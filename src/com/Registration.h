#pragma once

#include <windows.h>

namespace kaz {

enum class Users { AllOrThis, This };

// Tells the system about the component and its type library: for all users, or, when the rights for that are
// missing or not wanted, for this user alone.
HRESULT RegisterComponent(Users users);
// Forgets both. What was never registered is no failure.
HRESULT UnregisterComponent(Users users);

}  // namespace kaz
