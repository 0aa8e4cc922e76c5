#pragma once

namespace kaz {

// The number of the code page of CodePage::OfSystem: the system's own. A system set to UTF-8 still has files
// from the time before, in the code page of the user's language, so that one is taken there.
unsigned SystemCodePageNumber() noexcept;

}  // namespace kaz
