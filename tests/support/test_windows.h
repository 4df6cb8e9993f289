#pragma once

#include <string>
#include <vector>

#include "frame/event_binding.h"
#include "support/server_stub.h"
#include "support/test_bar.h"
#include "support/test_bill.h"

namespace arap::testing {

/// The host's list window.
class TestList final : public HostObject {
 public:
  explicit TestList(std::int32_t nClassTypeID = 0, Ref<TestBar> oBar = TestBar::of_list_window());
  std::string type_name() const override { return "ListEvents"; }
  EventSource* event_source() override { return &events; }

  EventSourceList events;
  Ref<TestBar> bar;
  /// RefreshList, letmessage, ShowMode, IsRun, ExistMultiCheck.
  Ref<ServerStub> form;
  /// ClassTypeId, GetBillDetail (the recordset of `details`, empty for another bill).
  Ref<ServerStub> server;
  std::map<std::int32_t, Ref<TestRecordset>> details;
  /// ListData; Nothing unless set.
  Ref<Object> rows;
  /// SelectedRows; a list without a selection has an empty Vector.
  Ref<TestVector> selection;

  /// Selects one more row: each column's key with a record that holds the value under FFLD and FDSP.
  TestList& select(Pairs aColumns);
  bool click(std::string_view sTool);
  std::vector<Variant> fire(Event event, std::vector<Variant> aArgs = {});

 private:
  Variant handle(Member member, Access access, Arguments args) override;
};

/// The host's base-data window.
class TestBaseClass final : public HostObject {
 public:
  explicit TestBaseClass(Ref<TestBar> oBar = TestBar::of_type_window());
  std::string type_name() const override { return "BaseClassEvent"; }
  EventSource* event_source() override { return &events; }

  EventSourceList events;
  Ref<TestBar> bar;
  Variant selected_node = std::int32_t{0};
  Variant current_item = std::int32_t{0};
  Ref<Object> active_control;
  std::vector<Variant> root_node;  // the arguments of SetRootNode
  int refreshes = 0;               // calls of RefreshItems

  bool click(std::string_view sTool);
  std::vector<Variant> fire(Event event, std::vector<Variant> aArgs = {});

 private:
  Variant handle(Member member, Access access, Arguments args) override;
};

}  // namespace arap::testing
