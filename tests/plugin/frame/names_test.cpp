#include "frame/names.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <string>

namespace arap {
namespace {

// A name is a constant when the program is compiled; the default member is the DISPID 0 of automation.
static_assert(name_of(Member::SetBarStatus) == "SetBarStatus");
static_assert(name_of(Event::MenuBarClick) == "MenuBarClick");
static_assert(static_cast<int>(Member::Default) == 0);

std::string Lower(std::string_view sText) {
  std::string sLower(sText);
  std::transform(sLower.begin(), sLower.end(), sLower.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return sLower;
}

std::string Upper(std::string_view sText) {
  std::string sUpper(sText);
  std::transform(sUpper.begin(), sUpper.end(), sUpper.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  return sUpper;
}

TEST(MemberNames, EveryNameLeadsBackToItsNumberInAnyCase) {
  for (std::size_t i = 0; i < kMemberNames.size(); ++i) {
    const auto member = static_cast<Member>(i);
    EXPECT_EQ(name_of(member), kMemberNames[i]);
    EXPECT_EQ(find_member(kMemberNames[i]), member) << kMemberNames[i];
    EXPECT_EQ(find_member(Lower(kMemberNames[i])), member) << kMemberNames[i];
    EXPECT_EQ(find_member(Upper(kMemberNames[i])), member) << kMemberNames[i];
  }
}

TEST(MemberNames, NoNameStandsTwiceWhateverItsCase) {
  std::set<std::string> aSeen;
  for (const std::string_view sName : kMemberNames) EXPECT_TRUE(aSeen.insert(Lower(sName)).second) << sName;
}

TEST(EventNames, EveryNameLeadsBackToItsNumberInAnyCase) {
  for (std::size_t i = 0; i < kEventNames.size(); ++i) {
    const auto event = static_cast<Event>(i);
    EXPECT_EQ(name_of(event), kEventNames[i]);
    EXPECT_EQ(find_event(kEventNames[i]), event) << kEventNames[i];
    EXPECT_EQ(find_event(Lower(kEventNames[i])), event) << kEventNames[i];
  }
}

TEST(EventNames, NoNameStandsTwiceWhateverItsCase) {
  std::set<std::string> aSeen;
  for (const std::string_view sName : kEventNames) EXPECT_TRUE(aSeen.insert(Lower(sName)).second) << sName;
}

TEST(Names, AForeignNameIsNotFound) {
  EXPECT_FALSE(find_member("GetFieldValues").has_value());
  EXPECT_FALSE(find_member("").has_value());
  EXPECT_FALSE(find_event("BeforeLoadBillFillData").has_value());
  EXPECT_FALSE(find_event("AfterSav").has_value());
}

TEST(Names, TheHostsOwnSpellingsAreKept) {
  EXPECT_EQ(name_of(Event::BeforLoadBillFillData), "BeforLoadBillFillData");
  EXPECT_EQ(name_of(Member::letmessage), "letmessage");
  EXPECT_EQ(name_of(Member::GetDataFldbyKey), "GetDataFldbyKey");
  EXPECT_EQ(find_member("VISIBLE"), Member::Visible);
  EXPECT_EQ(find_member("taskexec"), Member::TaskExec);
}

}  // namespace
}  // namespace arap
