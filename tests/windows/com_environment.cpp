// COM and OLE for all tests of the program: one single-threaded apartment.
#include <gtest/gtest.h>
#include <ole2.h>

namespace pricedown::testing {
namespace {

class ComEnvironment : public ::testing::Environment {
 public:
  void SetUp() override { ASSERT_EQ(OleInitialize(nullptr), S_OK); }
  void TearDown() override { OleUninitialize(); }
};

[[maybe_unused]] const ::testing::Environment* const kEnvironment =
    ::testing::AddGlobalTestEnvironment(new ComEnvironment);

}  // namespace
}  // namespace pricedown::testing
