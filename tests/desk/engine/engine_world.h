#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "data/database.h"
#include "desk/test_server.h"
#include "engine/bill_window.h"
#include "frame/conversions.h"
#include "frame/host_contract.h"

namespace desk::testing {

/// A settlement side, by the names in which its template differs.
struct Side {
  const char* sTemplate;
  const char* sPartner;
  const char* sType;
  const char* sGot;     // "Receive" or "Pay": between F and Amount
  const char* sNumber;  // number of the source bill
  const char* sSelect;  // selection command and its type
  std::int32_t nSelect;
  const char* sView;
  const char* sFirstNumber;
  const char* sTable;

  std::string got_for() const { return std::string("F") + sGot + "AmountFor"; }
  std::string got() const { return std::string("F") + sGot + "Amount"; }
  std::string open_for() const { return std::string("FBillUn") + sGot + "AmountFor"; }
};

inline const Side kSides[] = {
    {"receipt", "FCustomerID", "FReceiveTypeID", "Receive", "FInvoiceBillNo", "mnuSelectBill_2000001", 2000001,
     "vw_arap_RBillList", "RCV000001", "t_RP_RBill"},
    {"payment", "FSupplyID", "FPayTypeID", "Pay", "FPurchaseBillNo", "mnuSelectBill_2000002", 2000002,
     "vw_arap_PBillList", "PAY000001", "t_RP_PBill"},
};
inline std::string side_name(const ::testing::TestParamInfo<Side>& info) { return info.param.sTemplate; }

/// A plug-in whose handlers a test writes; it keeps the names of the events in order.
class ScriptedPlugin final : public arap::Object, private arap::EventSink {
 public:
  using Handler = std::function<void(arap::Arguments)>;

  std::string type_name() const override { return "ScriptedPlugin"; }
  arap::Variant invoke(arap::Member member, arap::Access, arap::Arguments args) override {
    if (member != arap::Member::Show) no_such_member(member);
    source_ = args[0].object();
    cookie_ = source_->event_source()->advise(*this);
    return {};
  }
  ~ScriptedPlugin() override {
    if (source_) source_->event_source()->unadvise(cookie_);
  }

  std::vector<std::string> aEvents;
  std::map<arap::Event, Handler> handlers;

 private:
  void on_event(arap::Event event, arap::Arguments args) override {
    aEvents.emplace_back(arap::name_of(event));
    if (const auto found = handlers.find(event); found != handlers.end()) found->second(args);
  }

  arap::Ref<arap::Object> source_;  // as a real one does: only the close of the window undoes the ring
  arap::EventSource::Cookie cookie_ = 0;
};

/// A book with few masters and three open invoices a side, and a window on it.
class BillWorld : public ::testing::TestWithParam<Side> {
 protected:
  void SetUp() override {
    const auto sName = "engine_" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) + "_" +
                       std::to_string(reinterpret_cast<std::uintptr_t>(this)) + ".book";
    path_ = (std::filesystem::temp_directory_path() / sName).string();
    std::filesystem::remove(path_);
    database = Database::create(book_address(path_));
    fill_masters();
    plugin = arap::make_object<ScriptedPlugin>();
    window = make_window();
  }
  void TearDown() override {
    window.reset();
    plugin = nullptr;
    database.reset();
    for (const char* sTail : {"", "-wal", "-shm"}) std::filesystem::remove(path_ + sTail);
  }

  OpenBillWindow make_window() {
    Host host(*database);
    host.sToday = "2026-11-21";
    host.sUser = "李会计";
    host.choose_sources = choose_all();
    return open_bill_window(host, BillTemplate::shipped(GetParam().sTemplate), plugin);
  }

  void fill_masters() {
    database->exec_script(R"(
      INSERT INTO t_Currency VALUES (1, 'RMB', '人民币', 1, '*', 2); INSERT INTO t_Currency VALUES (2, 'USD', '美元', 7.1, '*', 2);
      INSERT INTO t_SubMessage (FInterID, FID, FName, FTypeID) VALUES (1001, 'SK01', '收款', 1);
      INSERT INTO t_SubMessage (FInterID, FID, FName, FTypeID) VALUES (1003, 'FK01', '付款', 2);
      INSERT INTO t_Organization (FItemID, FNumber, FName) VALUES (11, '01', '甲公司');
      INSERT INTO t_Organization (FItemID, FNumber, FName) VALUES (12, '11', '乙公司');
      INSERT INTO t_Supplier (FItemID, FNumber, FName) VALUES (11, '01', '甲公司');
      INSERT INTO t_Supplier (FItemID, FNumber, FName) VALUES (12, '11', '乙公司'))");
    for (const auto& [sTable, sPartner] : {std::pair("ICSale", "FCustID"), std::pair("ICPurchase", "FSupplyID")}) {
      for (std::int32_t i = 1; i <= 3; ++i) {
        const Money amount = Money::from_double(100.25 * i);
        database->exec(
            std::string("INSERT INTO ") + sTable + " (FInterID, FBillNo, FDate, FDueDate, " + sPartner +
                ", FAmountFor, FAmount) VALUES (?, ?, ?, '2026-12-01', ?, ?, ?)",
            {i, "INV" + std::to_string(i), "2026-11-0" + std::to_string(i), i == 3 ? 12 : 11, amount, amount});
      }
    }
  }

  /// Fills a bill that can be stored and settles every open invoice in full.
  void fill_bill() {
    window->new_bill();
    ASSERT_TRUE(window->type_field(GetParam().sPartner, -1, "01"));
    ASSERT_TRUE(window->type_field("FCurrencyID", -1, "RMB"));
    ASSERT_TRUE(window->type_field("FAmountFor", -1, "601.5"));
  }

  double number(std::string_view sKey, std::int32_t nRow = -1) { return arap::NumberOf(window->value(sKey, nRow)); }
  arap::Variant definition(arap::Key sKey) {
    return window->call(arap::Member::GetFieldInfoByKey, sKey, "", std::int32_t{0});
  }

  std::unique_ptr<Database> database;
  arap::Ref<ScriptedPlugin> plugin;
  OpenBillWindow window;

 private:
  std::string path_;
};

}  // namespace desk::testing
