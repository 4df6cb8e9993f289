#include <gtest/gtest.h>

#include <array>
#include <random>

#include "desk/services/small_book.h"
#include "desk/services/write_off_model.h"
#include "desk/sides.h"
#include "engine/bill_store.h"
#include "frame/contract_containers.h"
#include "frame/conversions.h"
#include "frame/open_choices.h"
#include "services/bill_kinds.h"

namespace desk::testing {
namespace {

#ifdef NDEBUG
constexpr int kSteps = 60'000;  // a side
#else
constexpr int kSteps = 4'000;
#endif
constexpr std::size_t kMostBills = 10;
constexpr std::size_t kMostSettlements = 16;
constexpr int kStepsBetweenFullChecks = 200;

struct PropertySide {
  const char* sKind;
  const char* sService;
  const char* sSettlementService;
};

/// Random operations on one side's other bills and on the settlement bills over them, through store and services.
/// After each one the book stands as the model says.
class WriteOffs : public ::testing::TestWithParam<PropertySide> {
 protected:
  WriteOffs()
      : session(book.database(), "li"),
        kind(*find_bill_kind(GetParam().sKind)),
        bill(BillTemplate::shipped(kind.sTemplate)),
        service(session.registry().create(GetParam().sService)),
        settlement_service(session.registry().create(GetParam().sSettlementService)) {
    // The book is thrown away: nothing has to reach the disk.
    if (book.path().find("://") == std::string::npos) book.database().query("PRAGMA synchronous = OFF");
  }

  std::int64_t random(std::int64_t nFrom, std::int64_t nTo) {
    return std::uniform_int_distribution<std::int64_t>(nFrom, nTo)(engine);
  }
  /// An id that is there, or now and then one that isn't.
  template <class T>
  std::int32_t any_of(const std::map<std::int32_t, T>& all) {
    if (all.empty() || random(0, 19) == 0) return static_cast<std::int32_t>(random(1, 30));
    return std::next(all.begin(), random(0, static_cast<std::int64_t>(all.size()) - 1))->first;
  }
  std::int64_t amount() {
    const std::int64_t nCents = random(1, 3) == 1 ? random(1, 5) : random(1, 100'000);
    return random(0, 5) == 0 ? -nCents : nCents;
  }

  // --- the book ---------------------------------------------------------------------------------------------------

  std::int32_t store(std::int32_t nBill, bool bCredit, std::int64_t nCents) {
    const auto head = arap::make_object<DataRow>(bill, 1);
    const auto body = arap::make_object<BodyPage>(bill, 2);
    BillStore bills(book.database(), *bill);
    if (nBill != 0 && !bills.load(nBill, *head, *body)) return 0;
    const double dAmount = SmallBook::cents(nCents).to_double();
    const auto put = [&](DataRow& row, const char* sKey, arap::Variant vValue) {
      row.put(bill->field(bill->find_key(sKey)).nPosition, std::move(vValue));
    };
    put(*head, "FDate", "2026-11-05");
    put(*head, "FBillTypeID", bCredit ? kind.other->nCreditType : kind.other->side.nImmediateType);
    put(*head, "FCurrencyID", std::int32_t{1});
    for (const char* sKey : {"FAmountFor", "FAmount"}) put(*head, sKey, dAmount);
    for (const char* sKey : {"FCheckAmountFor", "FCheckAmount"}) put(*head, sKey, bCredit ? 0.0 : dAmount);
    DataRow& row = body->size() > 0 ? *body->row(1) : body->add_row();
    put(row, "FInOutTypeID", std::int32_t{3});
    for (const char* sKey : {"FBillAmountFor", "FBillAmount"}) put(row, sKey, dAmount);
    try {
      return bills.save(*head, *body, nBill).nBillID;
    } catch (const DeskError&) {
      return 0;
    }
  }
  static bool passes(const arap::Ref<arap::Object>& oService, std::int32_t nID, std::int32_t nFlag) {
    std::array<arap::Variant, 4> args{"", nID, nFlag, ""};
    return arap::LongOf(oService->invoke(arap::Member::CheckBill, arap::Access::Call, args)) == 0;
  }
  bool removes(const arap::Ref<arap::Object>& oService, std::int32_t nID) {
    const arap::Dictionary oData(session.registry().create(arap::open_choices::kDictionary));
    oData.SetValue("InterID", nID);
    oData.SetValue("CheckType", std::int32_t{0});
    const arap::Dictionary oAnswer(oService->call(arap::Member::CheckBillSimple, oData));
    return arap::LongOf(oAnswer.Value("Code")) == 0;
  }

  // --- the operations, each on book and model --------------------------------------------------------------------

  void new_bill() {
    const bool bCredit = random(0, 3) != 0;
    const std::int64_t nCents = amount();
    const std::int32_t nBill = store(0, bCredit, nCents);
    ASSERT_GT(nBill, 0);
    ASSERT_FALSE(model.bills.contains(nBill));
    model.add(nBill, bCredit, nCents);
  }
  void edit_bill() {
    const std::int32_t nBill = any_of(model.bills);
    const bool bCredit = random(0, 3) != 0;
    const std::int64_t nCents = amount();
    EXPECT_EQ(store(nBill, bCredit, nCents) != 0, model.edit(nBill, bCredit, nCents)) << "save " << nBill;
  }
  void check_or_uncheck_bill(bool bCheck) {
    const std::int32_t nBill = any_of(model.bills);
    EXPECT_EQ(passes(service, nBill, bCheck ? 1 : 0), bCheck ? model.check(nBill) : model.uncheck(nBill)) << nBill;
  }
  void remove_bill() {
    const std::int32_t nBill = any_of(model.bills);
    EXPECT_EQ(removes(service, nBill), model.remove(nBill)) << "delete " << nBill;
  }
  void new_settlement() {
    std::vector<std::pair<std::int32_t, std::int64_t>> aRows;
    std::int64_t nSum = 0;
    for (std::int64_t n = random(1, 3); n > 0; --n) {
      const std::int32_t nBill = any_of(model.bills);
      const std::int64_t nOpen = model.bills.contains(nBill) ? model.open(nBill) : 100;
      // The whole, a part, or an amount of its own that may be too much.
      const std::int64_t nHow = random(0, 9);
      const std::int64_t nCents = nHow < 4 ? nOpen : nHow < 8 ? nOpen / random(2, 3) : amount();
      aRows.emplace_back(nBill, nCents);
      nSum += nCents;
    }
    const std::int32_t nID = ++last_settlement;
    book.add_bill(kind.side, nID, nSum, money_comes_in(kind.side) ? 1001 : 1003);
    std::int32_t nIndex = 0;
    for (const auto& [nBill, nCents] : aRows)
      book.add_row_of_class(kind.side, nID, ++nIndex, kind.other->nClass, nBill, 1, nCents);
    model.add_settlement(nID, aRows);
  }
  void check_or_uncheck_settlement(bool bCheck) {
    const std::int32_t nID = any_of(model.settlements);
    EXPECT_EQ(passes(settlement_service, nID, bCheck ? 1 : 0),
              bCheck ? model.check_settlement(nID) : model.uncheck_settlement(nID))
        << nID;
  }
  void remove_settlement() {
    const std::int32_t nID = any_of(model.settlements);
    EXPECT_EQ(removes(settlement_service, nID), model.remove_settlement(nID)) << "delete settlement " << nID;
  }

  void step() {
    const std::int64_t nWhat = random(0, 99);
    if (nWhat < 12) return model.bills.size() < kMostBills ? new_bill() : remove_bill();
    if (nWhat < 22) return edit_bill();
    if (nWhat < 40) return check_or_uncheck_bill(true);
    if (nWhat < 48) return check_or_uncheck_bill(false);
    if (nWhat < 53) return remove_bill();
    if (nWhat < 68) return model.settlements.size() < kMostSettlements ? new_settlement() : remove_settlement();
    if (nWhat < 86) return check_or_uncheck_settlement(true);
    if (nWhat < 93) return check_or_uncheck_settlement(false);
    remove_settlement();
  }

  // --- what must hold ---------------------------------------------------------------------------------------------

  void compare() {
    const Rows rows =
        book.database().query(side_sql(kind.side,
                                       "SELECT FBillID, FStatus, FAmountFor, FAmountFor - FCheckAmountFor AS FLeft,"
                                       " FAmount - FCheckAmount AS FLeftBase FROM {other} ORDER BY FBillID"));
    ASSERT_EQ(rows.size(), model.bills.size());
    std::size_t nRow = 0;
    for (const auto& [nBill, expected] : model.bills) {
      ASSERT_EQ(rows.integer(nRow, "FBillID"), nBill);
      EXPECT_EQ(rows.integer(nRow, "FStatus") == 1, expected.bChecked) << nBill;
      const Money amount = rows.money(nRow, "FAmountFor");
      const Money left = rows.money(nRow, "FLeft");
      EXPECT_EQ(amount, SmallBook::cents(expected.nCents)) << nBill;
      EXPECT_EQ(left, SmallBook::cents(expected.bChecked || !expected.bCredit ? model.open(nBill) : expected.nCents));
      EXPECT_EQ(rows.money(nRow, "FLeftBase"), left) << nBill;
      EXPECT_TRUE(amount.units >= 0 ? left.units >= 0 && left <= amount : left.units <= 0 && left >= amount) << nBill;
      ++nRow;
    }
  }
  /// The selection offers exactly the checked bills that something is open of.
  void compare_open_items() {
    const Rows rows = book.database().query(
        side_sql(kind.side, "SELECT FBillID, FBillUn{got}AmountFor AS FLeft FROM {openview} ORDER BY FBillID"));
    std::map<std::int32_t, std::int64_t> offered, expected;
    for (std::size_t i = 0; i < rows.size(); ++i) offered[rows.integer(i, "FBillID")] = rows.money(i, "FLeft").units;
    for (const auto& [nBill, each] : model.bills) {
      if (each.bChecked && model.open(nBill) != 0) expected[nBill] = SmallBook::cents(model.open(nBill)).units;
    }
    EXPECT_EQ(offered, expected);
  }

  SmallBook book;
  Session session;
  const BillKind& kind;
  std::shared_ptr<const BillTemplate> bill;
  arap::Ref<arap::Object> service;
  arap::Ref<arap::Object> settlement_service;
  WriteOffModel model;
  std::int32_t last_settlement = 100;
  std::mt19937_64 engine;
};

INSTANTIATE_TEST_SUITE_P(
    Sides, WriteOffs,
    ::testing::Values(PropertySide{"receivable", "NUVlpsArApBill.clsArOtherBill", "NUVlpsArApBill.clsArBill"},
                      PropertySide{"payable", "NUVlpsArApBill.clsApOtherBill", "NUVlpsArApBill.clsApBill"}),
    [](const auto& side) { return side.param.sKind; });

TEST_P(WriteOffs, OpenAmountsAlwaysEqualAmountMinusWriteOffsAndNeverChangeSign) {
  const std::uint64_t nSeed = std::random_device{}();
  std::cout << "seed " << nSeed << ", " << kSteps << " steps\n";
  engine.seed(nSeed);
  for (int nStep = 1; nStep <= kSteps; ++nStep) {
    step();
    compare();
    if (nStep % kStepsBetweenFullChecks == 0) compare_open_items();
    ASSERT_FALSE(HasFailure()) << "seed " << nSeed << ", step " << nStep;
  }
}

}  // namespace
}  // namespace desk::testing
