#pragma once

#include <gmock/gmock.h>

namespace kaz {

// The words in which most tests say what they expect.
using testing::AllOf;
using testing::AnyOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;
using testing::SizeIs;
using testing::StartsWith;
using testing::UnorderedElementsAreArray;

}  // namespace kaz
