#pragma once

#include <gmock/gmock.h>

namespace kaz {

// The words in which most tests say what they expect.
using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

}  // namespace kaz
