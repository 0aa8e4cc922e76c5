#include <gtest/gtest.h>
#include <objbase.h>

namespace {

class Apartment : public testing::Environment {
    void SetUp() override { ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK); }
    void TearDown() override { CoUninitialize(); }
};

const auto* const apartment = testing::AddGlobalTestEnvironment(new Apartment);

}  // namespace
