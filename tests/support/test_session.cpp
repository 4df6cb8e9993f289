#include "support/test_session.h"

#include <algorithm>

#include "frame/open_choices.h"
#include "support/test_bar.h"

namespace arap::testing {

namespace {

constexpr std::string_view kProps =
    "ConnectString={Provider=SQLOLEDB;Data Source=books;Initial Catalog=AIS};UserName=tester;UserID=16394;";

std::string lower(std::string_view sText) {
  std::string sLower(sText);
  std::transform(sLower.begin(), sLower.end(), sLower.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return sLower;
}

std::int32_t whole(const Variant& vValue) { return static_cast<std::int32_t>(plain_number(vValue)); }

}  // namespace

TestSession::TestSession() : login_(make_object<ServerStub>("Login")), shared_(dictionary()) {
  trace().reset();
  add_frame_objects();
  add_ledger();
  add_system_servers();
  add_bill_servers();
  add_windows();
  set_props(kProps);
}

TestSession::~TestSession() { trace().fail_at(0); }

ServerStub& TestSession::add(Route route, std::string_view sProgID) {
  auto stub = make_object<ServerStub>(std::string(sProgID));
  stubs_[lower(sProgID)] = stub;
  if (route == Route::Factory) {
    factory_ids_.push_back(lower(sProgID));
  } else {
    platform.add_object(
        sProgID, [stub] { return Ref<Object>(stub); }, route == Route::QuietDirect);
  }
  return *stub;
}

ServerStub& TestSession::server(std::string_view sProgID) {
  const auto found = stubs_.find(lower(sProgID));
  if (found == stubs_.end()) throw AutomationError(ErrorNumber::CannotCreateObject, sProgID);
  return *found->second;
}

void TestSession::remove_server(std::string_view sProgID) {
  stubs_.erase(lower(sProgID));
  std::erase(factory_ids_, lower(sProgID));
  platform.remove_object(sProgID);
}

void TestSession::set_props(std::string_view sProps) {
  shared_->set("PropsString", sProps);
  login_->property(Member::PropsString, sProps);
}

void TestSession::add_frame_objects() {
  ServerStub& factory = add(Route::QuietDirect, open_choices::kObjectFactory);
  factory.on(Member::CreateServerObject, [this](Arguments args) -> Variant {
    const std::string sProgID = lower(plain_text(argument(args, 0)));
    const bool bKnown = std::find(factory_ids_.begin(), factory_ids_.end(), sProgID) != factory_ids_.end();
    if (!bKnown) throw AutomationError(ErrorNumber::CannotCreateObject, sProgID);
    return stubs_.at(sProgID);
  });
  platform.add_object(
      open_choices::kDictionary, [] { return Ref<Object>(make_object<TestDictionary>()); }, true);
  platform.add_object(
      open_choices::kVector, [] { return Ref<Object>(make_object<TestVector>()); }, true);
  platform.add_object(
      open_choices::kTool, [] { return Ref<Object>(make_object<TestTool>()); }, true);

  ServerStub& share = add(Route::QuietDirect, "NUVPropsMgr.ShareProps");
  share.on(Member::GetProperty, [this](Arguments args) { return shared_->at(plain_text(argument(args, 1))); });
  share.quiet(Member::GetProperty);
  shared_->set("NUVLogin", login_).set("UserName", "tester");
  login_->property(Member::UserName, "tester");
  login_->on(Member::TaskExec, [this](Arguments) {
    if (next_task < 1) return Variant(next_task);
    held_tasks.push_back(next_task);
    return Variant(next_task++);
  });
  login_->on(Member::CommitTask,
             [this](Arguments args) { return Variant(std::erase(held_tasks, whole(argument(args, 0))) > 0); });
}

void TestSession::add_ledger() {
  ServerStub& data = add(Route::QuietDirect, "NUVLPCGLView.GLData");
  data.on(Member::AccessCheck, [this](Arguments args) {
    return Variant(!access || access(whole(argument(args, 0)), whole(argument(args, 1)), whole(argument(args, 2))));
  });
  data.on(Member::WriteLog, [this](Arguments args) {
    log.push_back({plain_text(argument(args, 0)), whole(argument(args, 1)), plain_text(argument(args, 2))});
    return Variant();
  });
  data.on(Member::GetCurrency, [this](Arguments args) -> Variant {
    const auto found = currencies_.find(whole(argument(args, 0)));
    if (found == currencies_.end()) throw AutomationError(ErrorNumber::SubscriptOutOfRange, "Currency");
    return found->second;
  });
  data.quiet(Member::GetCurrency);
  data.property(Member::DeleteOptions);
  auto set = make_object<ServerStub>("CurrencySet");
  set->answers(Member::Refresh, {});
  data.property(Member::CurrencySet, set);
  add_currency(1, "人民币", 1, "*", 2);
  add_currency(2, "美元", 7, "*", 2);
  add_currency(3, "日元", 8, "/", 0);
}

void TestSession::add_currency(std::int32_t nID, std::string_view sName, double dRate, std::string_view sOperator,
                               int nScale) {
  auto currency = make_object<ServerStub>("Currency");
  currency->property(Member::Name, sName).property(Member::ExchangeRate, dRate).property(Member::Operator, sOperator);
  currency->property(Member::ScaleX, static_cast<std::int16_t>(nScale));
  currencies_[nID] = currency;
}

void TestSession::add_system_servers() {
  ServerStub& values = add(Route::Factory, "NUVBillDataAccess.SysInfo");
  values.on(Member::GetSysValue, [this](Arguments args) -> Variant {
    const auto found = system_values.find({plain_text(argument(args, 1)), plain_text(argument(args, 2))});
    return found == system_values.end() ? Variant("") : Variant(found->second);
  });
  add(Route::Factory, "NUVBillDataAccess.GetData").on(Member::ExecuteSQL, [this](Arguments args) {
    return system_data.run(argument(args, 1).text());
  });
  add(Route::Factory, "NUVMSystem.System").on(Member::GetRptTransDate, [this](Arguments) { return report_date; });
  add(Route::Factory, "NUVMCaculate.CommonSearch").on(Member::GetDateExt, [this](Arguments args) -> Variant {
    argument(args, 4) = "2024-12-31";
    args[1] = std::int32_t{2024};
    args[2] = std::int32_t{1};
    args[3] = period_start;
    return {};
  });
  add(Route::Factory, "NUVMAppConnection.AppConnection").on(Member::Execute, [this](Arguments args) {
    return lookups.run(argument(args, 1).text());
  });
  add(Route::Direct, "NUVConnection.AppConnection").on(Member::Execute, [this](Arguments args) {
    return commands.run(argument(args, 1).text());
  });
  add(Route::Direct, "NUVBOMMImpAndExp.cImpAndExp").on(Member::getRS, [this](Arguments args) {
    return bulk_data.run(argument(args, 1).text());
  });
  ServerStub& mutex = add(Route::Factory, "NUVNetControl.Mutex");
  mutex.answers(Member::GetTaskIdByUserInfo, {}).answers(Member::BatchCommitTask, true);
  add(Route::Factory, "NUVLPSGLVoucher.VoucherInfo").answers(Member::CheckVoucherRight, true);
  auto right = dictionary();
  right->set(open_choices::kRightUserText, "").set(open_choices::kRightInUse, false);
  add(Route::Factory, "NUVLPSGLItem.ItemInfo").answers(Member::GetDataRight, right);
}

void TestSession::add_bill_servers() {
  for (const char* sProgID : {"NUVlpsArApBill.clsArBill", "NUVlpsArApBill.clsApBill", "NUVlpsArApBill.clsArOtherBill",
                              "NUVlpsArApBill.clsApOtherBill"}) {
    ServerStub& service = add(Route::Factory, sProgID);
    service.on(Member::CheckBill, [this](Arguments args) {
      argument(args, 3) = check_message;
      return Variant(check_result);
    });
    service.on(Member::CheckBillSimple, [this](Arguments args) -> Variant {
      const Ref<Object>& oData = argument(args, 0).object();
      const std::int32_t nID = whole(oData->get(Member::Value, "InterID"));
      const auto found = simple_answers.find(nID);
      const SimpleAnswer answer =
          found == simple_answers.end() ? SimpleAnswer{0, "", std::to_string(nID)} : found->second;
      return dictionary({{"Code", answer.nCode}, {"Description", answer.sDescription}, {"BillNo", answer.sBillNo}});
    });
    service.answers(Member::GetUnCheckAmountFor, 0.0);
    service.on(Member::GetSourceBillData, [](Arguments) { return Variant(recordset({"FBillID"})); });
    for (const Member member : {Member::GetAPBillInfo, Member::GetARBillInfo}) {
      service.on(member, [](Arguments) { return Variant(recordset({"FBillID", "FBillNo"})); });
    }
    service.answers(Member::GetBill, true);
  }
  add(Route::Factory, "NUVMARAPPush.clsPush").answers(Member::GetBillTypeID, std::int32_t{0});
  ServerStub& types = add(Route::Factory, "NUVlpsArApBill.clsInOutType");
  types.on(Member::GetRPInOutTypeInfo, [](Arguments) {
    return Variant(recordset({"FID", "FNumber", "FName", "FParentID", "FIsLeaf"}));
  });
  types.answers(Member::IsSameAcctId, false);
  types.answers(Member::CheckRPInOutTypeUsed, false);
  add(Route::Factory, "NUVClassTpl.Datasrv").on(Member::GetData, [this](Arguments args) {
    return class_data.run(argument(args, 0).text());
  });
  add(Route::Direct, "NUVBills.clsCredit").answers(Member::GetStatusMoneyAndCredit, "");
}

void TestSession::add_windows() {
  add(Route::Direct, "NUVMVEdit.MVoucherEdit").answers(Member::LoadVoucher, {});
  add(Route::Direct, "NUVCHMResTool.ClsCHMHelp").answers(Member::ShowHelp, {});
  add(Route::Direct, "NUVFrmRes.FrmResLoader").answers(Member::SetFrmFont, {});
  ServerStub& related = add(Route::Factory, "NUVClassLookUp.RelateBilllookUp");
  related.property(Member::BillTypeID).property(Member::BillInterID).answers(Member::ShowList, {});
  ServerStub& report = add(Route::Direct, "NUVMYWARAPRpt.Data");
  for (const Member member : {Member::GetRpt131Data, Member::GetRpt132Data}) {
    report.on(member, [](Arguments) { return Variant(recordset({"FSumSort", "FRemainAmount"})); });
  }
  ServerStub& grid = add(Route::Direct, "NUVDisplayer.DispBuilder");
  grid.property(Member::Cols).property(Member::Titles);
  grid.answers(Member::SetColWidth, {}).answers(Member::Add, {}).answers(Member::Show, {});
  ServerStub& bills = add(Route::Direct, "NUVBills.Bills");
  bills.property(Member::SystemName).property(Member::LocalCnn);
  bills.property(Member::ListRecordset).property(Member::ListRSFieldVect);
  bills.answers(Member::SetOpt, {}).answers(Member::Show, {});
  ServerStub& connection = add(Route::Direct, open_choices::kAdoConnection);
  connection.property(Member::ConnectionString, "");
  connection.on(Member::Open, [&connection](Arguments args) -> Variant {
    connection.property(Member::ConnectionString, argument(args, 0));
    return {};
  });
  connection.answers(Member::Close, {});
}

}  // namespace arap::testing
