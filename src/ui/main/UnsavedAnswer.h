#pragma once

namespace kaz {

// What the user wants to become of what is not saved, when the program is to end.
enum class UnsavedAnswer { TryAgain, SaveCopy, Lose, Cancel };

}  // namespace kaz
