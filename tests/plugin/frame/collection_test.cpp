#include "frame/collection.h"

#include <gtest/gtest.h>

namespace arap::testing {
namespace {

TEST(CollectionTest, KeepsValuesInTheOrderOfTheirAdding) {
  const auto oCollection = make_object<Collection>();
  oCollection->call(Member::Add, "a");
  oCollection->call(Member::Add, 2);
  EXPECT_EQ(oCollection->get(Member::Count).as<std::int32_t>(), 2);
  EXPECT_EQ(oCollection->get(Member::Item, 1).text(), "a");
  EXPECT_EQ(oCollection->get(Member::Default, 2).as<std::int32_t>(), 2);
}

TEST(CollectionTest, RemovingClosesTheGap) {
  const auto oCollection = make_object<Collection>();
  for (const int n : {1, 2, 3}) oCollection->Add(n);
  oCollection->call(Member::Remove, 1);
  EXPECT_EQ(oCollection->Count(), 2);
  EXPECT_EQ(oCollection->Item(1).as<std::int32_t>(), 2);
}

TEST(CollectionTest, APlaceThatIsNotThereIsAnError) {
  const auto oCollection = make_object<Collection>();
  EXPECT_THROW(oCollection->Item(1), AutomationError);
  oCollection->Add(1);
  EXPECT_THROW(oCollection->Item(0), AutomationError);
  EXPECT_THROW(oCollection->call(Member::Remove, 2), AutomationError);
  EXPECT_THROW(oCollection->get(Member::Caption), AutomationError);
}

}  // namespace
}  // namespace arap::testing
