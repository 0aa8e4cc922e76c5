#include "fakes/TestData.h"

#include <cstdlib>

namespace kaz {

std::string TestData() {
    const char* folder = std::getenv("KAZ_TEST_DATA");
    return folder != nullptr ? folder : KAZ_TEST_DATA;
}

}  // namespace kaz
