#include "base/CodePage.h"

namespace kaz {

// The same on every machine, as the locale is.
const CodePage& CodePage::OfSystem() { return Western(); }

}  // namespace kaz
