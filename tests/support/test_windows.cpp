#include "support/test_windows.h"

namespace arap::testing {

namespace {

std::vector<Variant> click_arguments(const TestBar& oBar, std::string_view sTool) {
  Ref<TestTool> oTool(oBar.tools().find(sTool));
  if (!oTool) oTool = make_object<TestTool>(std::string(sTool));
  return {oTool, false};
}

}  // namespace

TestList::TestList(std::int32_t nClassTypeID, Ref<TestBar> oBar)
    : bar(std::move(oBar)),
      form(make_object<ServerStub>("ListForm")),
      server(make_object<ServerStub>("ListDataServer")),
      selection(make_object<TestVector>()) {
  form->answers(Member::RefreshList, {}).answers(Member::letmessage, {});
  form->property(Member::ShowMode, std::int32_t{0}).property(Member::IsRun, false);
  form->property(Member::ExistMultiCheck, false);
  server->property(Member::ClassTypeId, nClassTypeID);
  server->on(Member::GetBillDetail, [this](Arguments args) -> Variant {
    const auto found = details.find(static_cast<std::int32_t>(plain_number(argument(args, 0))));
    return found == details.end() ? recordset({"FBillID"}) : found->second->copy();
  });
}

TestList& TestList::select(Pairs aColumns) {
  auto oRow = dictionary();
  for (const auto& [sKey, vValue] : aColumns) oRow->set(sKey, dictionary({{"FFLD", vValue}, {"FDSP", vValue}}));
  selection->items.emplace_back(oRow);
  return *this;
}

bool TestList::click(std::string_view sTool) {
  return plain_number(fire(Event::MenuBarClick, click_arguments(*bar, sTool)).back()) != 0;
}

std::vector<Variant> TestList::fire(Event event, std::vector<Variant> aArgs) {
  return FireEvent(events, event, std::move(aArgs));
}

Variant TestList::handle(Member member, Access, Arguments) {
  switch (member) {
    case Member::ListData: return rows;
    case Member::ListDataServer: return server;
    case Member::SelectedRows: return selection;
    case Member::ListForm: return form;
    case Member::BarControl: return bar;
    default: no_such_member(member);
  }
}

TestBaseClass::TestBaseClass(Ref<TestBar> oBar) : bar(std::move(oBar)) {}

bool TestBaseClass::click(std::string_view sTool) {
  return plain_number(fire(Event::MenuBarClick, click_arguments(*bar, sTool)).back()) != 0;
}

std::vector<Variant> TestBaseClass::fire(Event event, std::vector<Variant> aArgs) {
  return FireEvent(events, event, std::move(aArgs));
}

Variant TestBaseClass::handle(Member member, Access, Arguments args) {
  switch (member) {
    case Member::SetRootNode: root_node.assign(args.begin(), args.end()); return {};
    case Member::SelectedNodeID: return selected_node;
    case Member::CurrentItemID: return current_item;
    case Member::ActiveControl: return active_control;
    case Member::RefreshItems: ++refreshes; return {};
    case Member::BarControl: return bar;
    default: no_such_member(member);
  }
}

}  // namespace arap::testing
