#include "engine/base_window.h"

#include <gtest/gtest.h>

#include "desk/engine/engine_world.h"
#include "desk/services/small_book.h"

namespace desk::testing {
namespace {

using arap::Event;
using arap::Member;
using Lines = std::vector<std::string>;

/// Three records under one branch, kept in memory.
class FakeData final : public BaseData {
 public:
  std::int32_t root() const override { return 100; }
  std::string root_name() const override { return "类别"; }
  std::vector<BaseItem> items() override { return aItems; }
  void remove(std::int32_t nID) override {
    if (bFails) throw DeskError(ErrorKind::Locked, "账套忙。", "book", "请再试。");
    std::erase_if(aItems, [nID](const BaseItem& item) { return item.nID == nID; });
  }
  void set_discontinued(std::int32_t nID, bool bDiscontinued) override {
    for (BaseItem& item : aItems) {
      if (item.nID == nID) item.bDiscontinued = bDiscontinued;
    }
  }
  std::unique_ptr<RecordStore> store(const BillTemplate&, std::int32_t) override { return std::make_unique<Store>(); }
  std::string filter(std::int32_t nBranch) const override { return "FBranch=" + std::to_string(nBranch) + " And 1=1"; }

  std::vector<BaseItem> aItems{{1, 100, 1, 1, "1", "收入", false, false},
                               {2, 1, 1, 2, "1.1", "租金", true, false},
                               {3, 1, 1, 2, "1.2", "利息", true, false}};
  bool bFails = false;

 private:
  class Store final : public RecordStore {
   public:
    Stored save(const DataRow&, BodyPage&, std::int32_t, const std::function<void()>&) override { return {9, "9"}; }
    bool load(std::int32_t nID, DataRow& head, BodyPage&) override {
      head.put(0, nID);
      return nID != 3;
    }
    std::int32_t find_number(const std::string&) override { return 0; }
  };
};

/// A plug-in that binds to every window it is shown, as that of the types does.
class TwoSourcePlugin final : public arap::Object, private arap::EventSink {
 public:
  std::string type_name() const override { return "TwoSourcePlugin"; }
  arap::Variant invoke(arap::Member member, arap::Access, arap::Arguments args) override {
    if (member != Member::Show) no_such_member(member);
    if (bFailsToShow) throw arap::AutomationError(5, "plugin", "no");
    sources_.push_back(args[0].object());
    cookies_.push_back(sources_.back()->event_source()->advise(*this));
    return {};
  }
  ~TwoSourcePlugin() override {
    for (std::size_t n = 0; n < sources_.size(); ++n) sources_[n]->event_source()->unadvise(cookies_[n]);
  }

  Lines aEvents;
  std::map<Event, ScriptedPlugin::Handler> handlers;
  bool bFailsToShow = false;
  std::shared_ptr<int> token;

 private:
  void on_event(Event event, arap::Arguments args) override {
    aEvents.emplace_back(arap::name_of(event));
    if (const auto found = handlers.find(event); found != handlers.end()) found->second(args);
  }

  std::vector<arap::Ref<arap::Object>> sources_;
  std::vector<arap::EventSource::Cookie> cookies_;
};

class BaseWindowTest : public ::testing::Test {
 protected:
  BaseWindowTest() { window = open(plugin); }
  OpenBaseWindow open(const arap::Ref<TwoSourcePlugin>& oPlugin) {
    return open_base_window(data, Host(book.database()), BillTemplate::shipped("type"), oPlugin);
  }
  Lines events() { return std::exchange(plugin->aEvents, {}); }
  std::string asked(Member member) { return arap::Concat(window.get()->get(member)); }
  std::string focused() {
    const arap::Variant vControl = window.get()->get(Member::ActiveControl);
    return vControl.is_nothing() ? "nothing" : arap::Concat(vControl.object()->get(Member::Name));
  }

  SmallBook book;
  std::shared_ptr<FakeData> data = std::make_shared<FakeData>();
  arap::Ref<TwoSourcePlugin> plugin = arap::make_object<TwoSourcePlugin>();
  OpenBaseWindow window;
};

TEST_F(BaseWindowTest, OpeningBuildsTheBarsAndSelectsTheRoot) {
  EXPECT_EQ(events(), (Lines{"BarInitialize", "MenuBarInitialize", "ClassGroupSelected", "AfterGetData"}));
  EXPECT_EQ(asked(Member::SelectedNodeID), "100");
  EXPECT_EQ(asked(Member::CurrentItemID), "0");
  ASSERT_EQ(window->grid().size(), 1u);
  EXPECT_EQ(window->grid()[0].sName, "收入");
}

TEST_F(BaseWindowTest, ASelectedNodeIsToldWithItsPlaceAndText) {
  std::string sTold;
  plugin->handlers[Event::ClassGroupSelected] = [&](arap::Arguments args) {
    for (const arap::Variant& vArgument : args) sTold += arap::Concat(vArgument) + " ";
  };
  ASSERT_TRUE(window->select_node(1));
  EXPECT_EQ(sTold, "100 1 1 1 收入 ");
  EXPECT_EQ(window->grid().size(), 2u);
  EXPECT_EQ(focused(), "tree");
  sTold.clear();
  EXPECT_FALSE(window->select_node(77));
  EXPECT_EQ(sTold, "");
}

TEST_F(BaseWindowTest, TheFocusGoesWithTheUser) {
  ASSERT_TRUE(window->select_node(1));
  EXPECT_FALSE(window->select_item(1)) << "the grid doesn't show the node itself";
  ASSERT_TRUE(window->select_item(3));
  EXPECT_EQ(focused(), "grid");
  EXPECT_EQ(asked(Member::CurrentItemID), "3");
  window->focus(BaseControl::None);
  EXPECT_EQ(focused(), "nothing");
}

TEST_F(BaseWindowTest, TheRootThatThePluginNamesIsTheRootThen) {
  window.get()->call(Member::SetRootNode, std::int32_t{1}, std::int32_t{1}, std::int32_t{1}, "");
  EXPECT_EQ(window->selected_node(), 1);
  EXPECT_EQ(window->root(), 1);
}

TEST_F(BaseWindowTest, ARefreshOfTheGridIsNoNewEvent) {
  events();
  const std::int32_t nBefore = window->refreshes();
  window.get()->call(Member::RefreshItems, std::int32_t{1});
  EXPECT_EQ(window->refreshes(), nBefore + 1);
  EXPECT_TRUE(events().empty());
}

TEST_F(BaseWindowTest, TheCurrentRecordStaysOverARefreshWhileItIsThere) {
  ASSERT_TRUE(window->select_node(1));
  ASSERT_TRUE(window->select_item(3));
  window->refresh();
  EXPECT_EQ(window->current_item(), 3);
  data->remove(3);
  window->refresh();
  EXPECT_EQ(window->current_item(), 0);
  data->aItems.clear();
  window->refresh();
  EXPECT_EQ(window->selected_node(), 100);
}

TEST_F(BaseWindowTest, WhatThePluginStopsTheHostDoesNotDo) {
  ASSERT_TRUE(window->select_node(1));
  ASSERT_TRUE(window->select_item(3));
  plugin->handlers[Event::MenuBarClick] = [](arap::Arguments args) { args[1] = true; };
  const Outcome stopped = window->press("mnuEditDel");
  EXPECT_FALSE(stopped);
  EXPECT_EQ(stopped.sReason, "");
  EXPECT_EQ(data->aItems.size(), 3u);
  plugin->handlers.clear();
  EXPECT_TRUE(window->press("mnuEditDel"));
  EXPECT_EQ(data->aItems.size(), 2u);
}

TEST_F(BaseWindowTest, AFailureOfTheBookIsTheReasonOfTheRefusal) {
  ASSERT_TRUE(window->select_node(1));
  ASSERT_TRUE(window->select_item(3));
  data->bFails = true;
  EXPECT_EQ(window->press("mnuEditDel").sReason, "账套忙。 请再试。");
  plugin->handlers[Event::MenuBarClick] = [](arap::Arguments) { throw arap::AutomationError(5, "x", "规则失败"); };
  EXPECT_EQ(window->press("mnuEditDel").sReason, "规则失败");
  EXPECT_FALSE(window->press("mnuNone"));
}

TEST_F(BaseWindowTest, TheSmallBillTalksToTheSamePluginAndKnowsItsBranch) {
  ASSERT_TRUE(window->select_node(1));
  events();
  ASSERT_TRUE(window->press("mnuFileNewItem"));
  EXPECT_EQ(events(),
            (Lines{"MenuBarClick", "BarInitialize", "MenuBarInitialize", "AfterNewBill", "AfterNewEmptyData"}));
  const arap::BillEvent oBill{arap::Variant(arap::Ref<arap::Object>(window->bill()))};
  EXPECT_EQ(arap::Concat(oBill.FilterValue("FilterString")), "FBranch=1 And 1=1");
  const std::int32_t nBefore = window->refreshes();
  ASSERT_TRUE(window->bill()->save());
  EXPECT_EQ(window->refreshes(), nBefore + 1);
  EXPECT_EQ(arap::Concat(window->bill()->value("FID")), "9");
}

TEST_F(BaseWindowTest, AClosedSmallBillIsNoneAndAStoreOfItTellsNobody) {
  ASSERT_TRUE(window->select_node(1));
  ASSERT_TRUE(window->press("mnuFileNewItem"));
  const arap::Ref<BillWindow> bill(window->bill());
  ASSERT_TRUE(bill->press("mnuFileExit"));
  EXPECT_EQ(window->bill(), nullptr);
  const std::int32_t nBefore = window->refreshes();
  bill->save();
  EXPECT_EQ(window->refreshes(), nBefore);
}

TEST_F(BaseWindowTest, ARecordThatIsGoneOpensNoBill) {
  ASSERT_TRUE(window->select_node(1));
  EXPECT_EQ(window->press("mnuEditModify").sReason, "请先在列表中选择一条资料。");
  ASSERT_TRUE(window->select_item(3));
  EXPECT_EQ(window->press("mnuEditModify").sReason, "资料已被其他用户删除，请刷新。");
  EXPECT_EQ(window->bill(), nullptr);
  ASSERT_TRUE(window->select_item(2));
  EXPECT_TRUE(window->press("mnuEditModify"));
  EXPECT_NE(window->bill(), nullptr);
}

TEST_F(BaseWindowTest, TheOwnerLetsThePluginAndTheBillGo) {
  auto oHeld = arap::make_object<TwoSourcePlugin>();
  const auto token = std::make_shared<int>();
  oHeld->token = token;
  OpenBaseWindow owned = open(oHeld);
  oHeld = nullptr;
  ASSERT_TRUE(owned->select_node(1));
  ASSERT_TRUE(owned->press("mnuFileNewItem"));
  EXPECT_GT(token.use_count(), 1);
  OpenBaseWindow other = std::move(owned);
  EXPECT_FALSE(owned);
  other = OpenBaseWindow();
  EXPECT_EQ(token.use_count(), 1);
}

TEST_F(BaseWindowTest, APluginThatFailsWhileTheWindowOpensIsLetGo) {
  auto oFailing = arap::make_object<TwoSourcePlugin>();
  const auto token = std::make_shared<int>();
  oFailing->token = token;
  oFailing->bFailsToShow = true;
  EXPECT_THROW(open(oFailing), arap::AutomationError);
  oFailing->bFailsToShow = false;
  oFailing->handlers[Event::BarInitialize] = [](arap::Arguments) { throw arap::AutomationError(5, "x", "no bar"); };
  EXPECT_THROW(open(oFailing), arap::AutomationError);
  oFailing = nullptr;
  EXPECT_EQ(token.use_count(), 1);
}

}  // namespace
}  // namespace desk::testing
