#include "settlement/detail_form.h"

#include <gtest/gtest.h>

#include "frame/host_contract.h"
#include "support/test_session.h"

namespace arap::testing {
namespace {

const std::vector<std::string> kColumns = {"FBillNo",
                                           "FBillDate",
                                           "FBillAmountFor",
                                           "FBillAmount",
                                           "FBillPayAmountFor",
                                           "FBillUnPayAmountFor",
                                           "FBillSettleAmountFor",
                                           "FBillSettleAmount",
                                           "FCurrencyName",
                                           "FEntryExchangeRate",
                                           "FBillNote",
                                           "FAllBackAmountFor",
                                           "FBackAmountFor",
                                           "FBackAmount",
                                           "FInterID",
                                           "FClassID_SRC"};

/// The form of payment 77 over a machine with a grid control.
class DetailForm : public ::testing::Test {
 protected:
  DetailForm() {
    session.platform.use_grid_form = [](TestGrid&, GridForm& oForm) { oForm.CmdCancel_Click(); };
    give({});
    form->put(Member::FInterID, 77);
  }

  void give(std::vector<std::vector<Variant>> aRows) {
    session.server("NUVlpsArApBill.clsApBill").answers(Member::GetSourceBillData, recordset(kColumns, aRows));
  }
  /// A source bill of 1000 at a rate of 2, paid 400, of which 150 went back; b was entered before.
  static std::vector<Variant> source(Variant vBack, Variant vRate = 2.0) {
    return {"CG001",
            "2024-01-05",
            1000.0,
            2000.0,
            400.0,
            600.0,
            400.0,
            800.0,
            "美元",
            std::move(vRate),
            "急",
            150.0,
            std::move(vBack),
            55.0,
            std::int32_t{41},
            std::int32_t{1000003}};
  }
  /// Shows the form; `use` looks at the grid and types, then the button is pressed.
  void show(const std::function<void(TestGrid&)>& use, bool bOk = true) {
    session.platform.use_grid_form = [&](TestGrid& oGrid, GridForm& oForm) {
      use(oGrid);
      bOk ? oForm.CmdOk_Click() : oForm.CmdCancel_Click();
    };
    form->Show();
  }
  Dictionary row(std::int32_t n) const { return Dictionary(form->vctBackData()->Item(n)); }

  TestSession session;
  Ref<FrmDetail> form = make_object<FrmDetail>();
};

TEST_F(DetailForm, TheGridIsSetUpAsTheFormWantsIt) {
  show([](TestGrid& oGrid) {
    for (const Member member : {Member::AllowColMove, Member::AllowRowMove}) {
      EXPECT_FALSE(oGrid.property(member).as<bool>());
    }
    EXPECT_TRUE(oGrid.property(Member::EditModeReplace).as<bool>());
    for (const auto& [member, nValue] : std::vector<std::pair<Member, int>>{{Member::Appearance, 1},
                                                                            {Member::EditEnterAction, 5},
                                                                            {Member::ButtonDrawMode, 1},
                                                                            {Member::UserResize, 1},
                                                                            {Member::SelBackColor, 0xFFEBEA},
                                                                            {Member::SelForeColor, 0xE97B21},
                                                                            {Member::ShadowColor, 0xE6C6AE},
                                                                            {Member::GridColor, 0xA2A2A2},
                                                                            {Member::ShadowDark, 0xA2A2A2},
                                                                            {Member::LockBackColor, 0xFEEDF8},
                                                                            {Member::MaxCols, 16}}) {
      EXPECT_EQ(plain_number(oGrid.property(member)), nValue) << name_of(member);
    }
    EXPECT_EQ(oGrid.text(0, 0), "序号");
    EXPECT_EQ(oGrid.row_height(0), 24.5);
    EXPECT_EQ(oGrid.row_height(1), 12.5);
    for (int nCol = 1; nCol <= 16; ++nCol) EXPECT_EQ(oGrid.col_width(nCol), 10);
  });
}

TEST_F(DetailForm, FormatGridAloneLeavesATitleRowOf22) {
  auto oGrid = make_object<TestGrid>();
  form->call(Member::FormatGrid, oGrid);
  EXPECT_EQ(oGrid->row_height(0), 22);
  EXPECT_EQ(oGrid->text(0, 0), "序号");
  form->call(Member::HideCol, oGrid, 3);
  EXPECT_TRUE(oGrid->hidden(3));
}

TEST_F(DetailForm, TheColumnsHaveTheirTitlesAndTheLastTwoAreHidden) {
  const std::vector<std::string> aTitles = {"源单编号",   "单据日期",         "单据金额", "单据金额(本位币)",
                                            "已付款金额", "未付款金额",       "实付金额", "实付金额(本位币)",
                                            "发票币别",   "当期汇率",         "备注",     "累计退款金额",
                                            "退款金额",   "退款金额(本位币)", "",         ""};
  show([&](TestGrid& oGrid) {
    for (int nCol = 1; nCol <= 16; ++nCol) {
      EXPECT_EQ(oGrid.text(0, nCol), aTitles[static_cast<std::size_t>(nCol) - 1]);
      EXPECT_EQ(oGrid.hidden(nCol), nCol > 14) << nCol;
    }
  });
}

TEST_F(DetailForm, AmountsAndRateAreNumbersWithinTheirBounds) {
  show([](TestGrid& oGrid) {
    for (int nCol = 1; nCol <= 16; ++nCol) {
      const bool bAmount = (nCol >= 3 && nCol <= 8) || (nCol >= 12 && nCol <= 14);
      if (!bAmount && nCol != 10) {
        EXPECT_TRUE(oGrid.column(Member::CellType, nCol).is_empty()) << nCol;
        continue;
      }
      EXPECT_EQ(plain_number(oGrid.column(Member::TypeFloatDecimalPlaces, nCol)), 2) << nCol;
      EXPECT_EQ(plain_number(oGrid.column(Member::TypeFloatMin, nCol)), bAmount ? -999999999999.99 : 0) << nCol;
      EXPECT_EQ(plain_number(oGrid.column(Member::TypeFloatMax, nCol)), bAmount ? 999999999999.99 : 999999999.999999);
    }
  });
}

TEST_F(DetailForm, OnlyTheAmountToBeRefundedIsFree) {
  give({source(0.0), source(0.0)});
  show([](TestGrid& oGrid) {
    for (int nRow = 1; nRow <= 2; ++nRow) {
      for (int nCol = 1; nCol <= 14; ++nCol) EXPECT_EQ(oGrid.locked(nRow, nCol), nCol != 13) << nRow << " " << nCol;
    }
  });
}

TEST_F(DetailForm, TheSourceBillsOfThePaymentAreAskedForByItsIdAsText) {
  show([](TestGrid&) {});
  const auto aArgs = session.server("NUVlpsArApBill.clsApBill").last(Member::GetSourceBillData);
  ASSERT_EQ(aArgs.size(), 2u);
  EXPECT_EQ(arap::testing::show(aArgs[1]), "\"77\"");
  EXPECT_NE(plain_text(aArgs[0]).find("UserName=tester"), std::string::npos);
}

TEST_F(DetailForm, ASourceBillFillsItsRow) {
  give({source(0.0)});
  show([](TestGrid& oGrid) {
    const std::vector<std::string> aTexts = {"CG001",  "2024-01-05", "1000.00", "2000.00", "400.00", "600.00",
                                             "400.00", "800.00",     "美元",    "2.00",    "急",     "150.00"};
    for (int nCol = 1; nCol <= 12; ++nCol) EXPECT_EQ(oGrid.text(1, nCol), aTexts[static_cast<std::size_t>(nCol) - 1]);
    EXPECT_EQ(oGrid.text(1, 15), "41");
    EXPECT_EQ(oGrid.text(1, 16), "1000003");
    EXPECT_EQ(oGrid.rows(), 1);
  });
}

TEST_F(DetailForm, NullsAreEmptyTextsAndZeroAmounts) {
  std::vector<Variant> aRow(16, Null{});
  aRow[9] = 1.0;
  give({aRow});
  show([](TestGrid& oGrid) {
    EXPECT_EQ(oGrid.text(1, 1), "");
    EXPECT_EQ(oGrid.text(1, 3), "0.00");
    EXPECT_EQ(oGrid.text(1, 13), "0.00");
    EXPECT_EQ(oGrid.text(1, 15), "");
  });
}

TEST_F(DetailForm, WithNothingEnteredAllThatCanStillBeRefundedIsProposed) {
  give({source(0.0), source(Null{})});
  show([](TestGrid& oGrid) {
    for (int nRow = 1; nRow <= 2; ++nRow) {
      EXPECT_EQ(oGrid.text(nRow, 13), "250.00");
      EXPECT_EQ(oGrid.text(nRow, 14), "200.00");  // 400 divided by the rate
    }
  });
}

TEST_F(DetailForm, TheBaseAmountDividesByTheRateAsItIsShown) {
  give({source(0.0, 0.125)});
  show([](TestGrid& oGrid) {
    EXPECT_EQ(oGrid.text(1, 10), "0.12");
    EXPECT_EQ(oGrid.text(1, 14), "3333.33");
  });
}

TEST_F(DetailForm, WhatWasEnteredBeforeIsShownAgain) {
  give({source(75.5)});
  show([](TestGrid& oGrid) {
    EXPECT_EQ(oGrid.text(1, 13), "75.50");
    EXPECT_EQ(oGrid.text(1, 14), "55.00");
  });
}

TEST_F(DetailForm, OkGivesADictionaryARowAndTheSum) {
  give({source(0.0), source(75.5)});
  show([](TestGrid& oGrid) { oGrid.type(1, 13, 9999.0); });
  EXPECT_TRUE(form->OK());
  EXPECT_EQ(form->TotalBackAmount(), 10074.5);  // above what can be refunded: nothing is validated
  ASSERT_EQ(form->vctBackData()->Count(), 2);
  EXPECT_EQ(plain_number(row(1).Value("FBackAmountFor"_key)), 9999);
  EXPECT_EQ(plain_number(row(2).Value("FInterId"_key)), 41);
  EXPECT_EQ(plain_number(row(2).Value("FClassID_SRC"_key)), 1000003);
}

TEST_F(DetailForm, APaymentWithNoSourcesShowsOneEmptyRowAndOkGivesEmptyValues) {
  show([](TestGrid& oGrid) {
    EXPECT_EQ(oGrid.rows(), 1);
    EXPECT_EQ(oGrid.text(1, 13), "");
  });
  ASSERT_EQ(form->vctBackData()->Count(), 1);
  for (const Key sKey : {"FBackAmountFor"_key, "FInterId"_key, "FClassID_SRC"_key}) {
    EXPECT_EQ(plain_text(row(1).Value(sKey)), "");
  }
  EXPECT_EQ(form->TotalBackAmount(), 0);
}

TEST_F(DetailForm, CancelLeavesTheResultEmpty) {
  give({source(0.0)});
  show([](TestGrid&) {}, false);
  EXPECT_FALSE(form->OK());
  EXPECT_EQ(form->vctBackData()->Count(), 0);
}

TEST_F(DetailForm, TheFormGetsTheSessionsFontBeforeItsGrid) {
  show([](TestGrid&) {});
  EXPECT_EQ(session.server("NUVFrmRes.FrmResLoader").count(Member::SetFrmFont), 1u);
  EXPECT_LT(trace().position("SetFrmFont"), trace().position("AllowColMove"));
}

TEST_F(DetailForm, AnErrorOfTheServiceReachesWhoeverOpensTheForm) {
  session.server("NUVlpsArApBill.clsApBill").fails(Member::GetSourceBillData, -9, "服务中断");
  EXPECT_THROW(form->Show(), AutomationError);
  EXPECT_TRUE(session.platform.messages.empty());
}

TEST_F(DetailForm, ARateOfZeroIsADivisionByZero) {
  give({source(0.0, 0.0)});
  try {
    form->Show();
    FAIL() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::DivisionByZero));
  }
}

TEST_F(DetailForm, WithoutTheGridControlItCannotBeShown) {
  session.platform.use_grid_form = nullptr;
  try {
    form->Show();
    FAIL() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::CannotCreateObject));
    EXPECT_NE(error.description().find("FPSpreadADO.fpSpread"), std::string::npos);
  }
}

TEST_F(DetailForm, TheResultCanBeReadAfterTheFormClosedUntilItIsUnloaded) {
  show([](TestGrid&) {});
  EXPECT_EQ(plain_number(form->get(Member::vctBackData).object()->get(Member::Count)), 1);
  EXPECT_TRUE(form->get(Member::OK).as<bool>());
  EXPECT_EQ(plain_number(form->get(Member::TotalBackAmount)), 0);
  form->Unload();
  EXPECT_FALSE(form->vctBackData());
}

TEST_F(DetailForm, PropertiesGoOneWay) {
  EXPECT_THROW(form->get(Member::FInterID), AutomationError);
  EXPECT_THROW(form->put(Member::OK, true), AutomationError);
  EXPECT_THROW(form->put(Member::TotalBackAmount, 1.0), AutomationError);
  EXPECT_THROW(form->put(Member::vctBackData, 1), AutomationError);
}

TEST_F(DetailForm, AFailingCallReachesTheCallerAndTheFormCanBeShownAgain) {
  const int nFaults = FailEachCall([this](const std::function<void()>& arm) {
    give({source(0.0)});
    arm();
    try {
      show([](TestGrid&) {});
      EXPECT_FALSE(trace().faulted());
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.number(), Trace::kFaultNumber);
    }
  });
  EXPECT_GT(nFaults, 50);
  EXPECT_TRUE(form->OK());
}

}  // namespace
}  // namespace arap::testing
