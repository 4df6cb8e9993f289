#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class SelectionFilter : public BothSides {
 protected:
  /// The filter that the host's query has after the event.
  std::string filter(std::int32_t nKind, const std::string& sFilter = "") {
    const auto aArgs = bill->fire(Event::BeforeSelBills, {nKind, oQuery, Ref<Object>(), sFilter, false});
    EXPECT_FALSE(aArgs[4].as<bool>()) << "selection is never cancelled here";
    return plain_text(aArgs[3]);
  }
  std::string sort_order() const {
    const auto aArgs = oQuery->last(Member::Filter);
    return aArgs.size() == 2 ? plain_text(aArgs[0]) + "=" + plain_text(aArgs[1]) : "";
  }
  void add_row(std::int32_t nInterID, std::int32_t nEntryHxd, std::int32_t nClass, std::int32_t nEntry) {
    bill->add_row({{side.sSourceNo, "X-1"},
                   {"FInterID", nInterID},
                   {"FEntryID_HXD_SRC", nEntryHxd},
                   {"FClassID_SRC", nClass},
                   {"FEntryID_SRC", nEntry}});
  }
  void two_rows() {
    add_row(11, 3, 1000000, 31);
    add_row(12, 4, 1000205, 32);
  }

  Ref<ServerStub> oQuery = query();

 private:
  static Ref<ServerStub> query() {
    auto oStub = make_object<ServerStub>("Query");
    oStub->on(Member::Filter, [](Arguments) { return Variant(); });
    return oStub;
  }
};
INSTANTIATE_BOTH_SIDES(SelectionFilter);

TEST_P(SelectionFilter, EmptyBodyOfABillInBaseCurrencyIsFilteredByThePartnerAlone) {
  bill->head(side.sPartner, 7).head("FCurrencyID", 1);
  EXPECT_EQ(filter(side.nOpenKind), pick("  1=1  and vw_arap_RBillList.FOriCustID =7",  //
                                         "  1=1  and vw_arap_PBillList.FOriSupplyID =7"));
}

TEST_P(SelectionFilter, RowsOfTheBodyAreKeptOutOfTheOpenItems) {
  bill->head(side.sPartner, 7).head("FCurrencyID", 2);
  two_rows();
  EXPECT_EQ(filter(side.nOpenKind),
            pick("  1=1  and vw_arap_RBillList.FOriCustID =7  And vw_arap_RBillList.fCurrencyid in(1,2) and not "
                 "((vw_arap_RBillList.FBillID =11 and vw_arap_RBillList.FEntryID_HXD_SRC = 3 and "
                 "vw_arap_RBillList.FClassTypeID_SRC = 1000000) or (vw_arap_RBillList.FBillID =12 and "
                 "vw_arap_RBillList.FEntryID_HXD_SRC = 4 and vw_arap_RBillList.FClassTypeID_SRC = 1000205) )",
                 "  1=1  and vw_arap_PBillList.FOriSupplyID =7  And vw_arap_PBillList.fCurrencyid in(1,2) and not "
                 "((vw_arap_PBillList.FBillID =11 and vw_arap_PBillList.FEntryID_HXD_SRC = 3 and "
                 "vw_arap_PBillList.FClassTypeID_SRC = 1000000) or (vw_arap_PBillList.FBillID =12 and "
                 "vw_arap_PBillList.FEntryID_HXD_SRC = 4 and vw_arap_PBillList.FClassTypeID_SRC = 1000205) )"));
}

TEST_P(SelectionFilter, ARowWithoutASourceContributesItsZeros) {
  bill->head(side.sPartner, 0).head("FCurrencyID", 1);
  bill->add_row({{side.sSourceNo, "X-1"}, {"FInterID", ""}});
  EXPECT_EQ(filter(side.nOpenKind),
            pick("  1=1  and not ((vw_arap_RBillList.FBillID =0 and vw_arap_RBillList.FEntryID_HXD_SRC = 0 and "
                 "vw_arap_RBillList.FClassTypeID_SRC = 0) )",
                 "  1=1  and not ((vw_arap_PBillList.FBillID =0 and vw_arap_PBillList.FEntryID_HXD_SRC = 0 and "
                 "vw_arap_PBillList.FClassTypeID_SRC = 0) )"));
}

TEST_P(SelectionFilter, AHeadWithoutCurrencyHasOnlyThePartnerCondition) {
  bill->head(side.sPartner, 7).head("FCurrencyID", 0);
  two_rows();
  EXPECT_EQ(filter(side.nOpenKind), pick("  1=1  and vw_arap_RBillList.FOriCustID =7",  //
                                         "  1=1  and vw_arap_PBillList.FOriSupplyID =7"));
  EXPECT_EQ(filter(side.nRefundKind), pick("  1=1  and vw_arap_RBackBillList.FCustID =7",  //
                                           "  1=1  and vw_arap_PBackBillList.FSupplyID =7"));
  EXPECT_EQ(sort_order(), "");
}

TEST_P(SelectionFilter, AHeadWithoutPartnerHasNoPartnerCondition) {
  bill->head(side.sPartner, 0).head("FCurrencyID", 3);
  EXPECT_EQ(filter(side.nOpenKind), pick("  1=1   And vw_arap_RBillList.fCurrencyid in(1,3)",  //
                                         "  1=1   And vw_arap_PBillList.fCurrencyid in(1,3)"));
}

TEST_P(SelectionFilter, TheHostsOwnFilterStandsFirst) {
  bill->head(side.sPartner, 7).head("FCurrencyID", 1);
  EXPECT_EQ(filter(side.nOpenKind, "FStatus=1"),
            pick("FStatus=1 and vw_arap_RBillList.FOriCustID =7", "FStatus=1 and vw_arap_PBillList.FOriSupplyID =7"));
}

TEST_P(SelectionFilter, ARefundExcludesTheEntriesOfTheBodyAndShowsTheNewestFirst) {
  bill->head(side.sPartner, 7).head("FCurrencyID", 2);
  two_rows();
  EXPECT_EQ(filter(side.nRefundKind),
            pick("  1=1  and vw_arap_RBackBillList.FCustID =7  And vw_arap_RBackBillList.fCurrencyid in(1,2) and "
                 "vw_arap_RBackBillList.FID not in(31,32)",
                 "  1=1  and vw_arap_PBackBillList.FSupplyID =7  And vw_arap_PBackBillList.fCurrencyid in(1,2) and "
                 "vw_arap_PBackBillList.FID not in(31,32)"));
  EXPECT_EQ(sort_order(), pick("HeadSort= vw_arap_RBackBillList.Fbillid desc",  //
                               "HeadSort= vw_arap_PBackBillList.Fbillid desc"));
}

TEST_P(SelectionFilter, ARefundRowWithoutAnEntryGivesAZeroInTheList) {
  bill->head(side.sPartner, 0).head("FCurrencyID", 1);
  two_rows();
  bill->add_row({{side.sSourceNo, "X-3"}, {"FInterID", 13}, {"FEntryID_SRC", ""}});
  EXPECT_EQ(filter(side.nRefundKind), pick("  1=1  and vw_arap_RBackBillList.FID not in(31,32,0)",  //
                                           "  1=1  and vw_arap_PBackBillList.FID not in(31,32,0)"));
}

TEST_P(SelectionFilter, ARefundOfAnEmptyBodyIsSortedAndExcludesNothing) {
  bill->head(side.sPartner, 0).head("FCurrencyID", 1);
  EXPECT_EQ(filter(side.nRefundKind), "  1=1 ");
  EXPECT_NE(sort_order(), "");
}

TEST_P(SelectionFilter, OtherSourceKindsLeaveTheFilterAlone) {
  bill->head(side.sPartner, 7).head("FCurrencyID", 2);
  two_rows();
  for (const std::int32_t nKind : {1000000, 1000002, other.nOpenKind, other.nRefundKind}) {
    EXPECT_EQ(filter(nKind), "") << nKind;
    EXPECT_EQ(filter(nKind, "FStatus=1"), "FStatus=1") << nKind;
  }
  EXPECT_EQ(sort_order(), "");
}

}  // namespace
}  // namespace arap::testing
