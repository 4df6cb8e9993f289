#include <string>

#include "frame/bill_fields.h"
#include "settlement/settlement_bill.h"

namespace arap {
namespace {

/// What the host hands over before its selection window opens, as far as the filter needs it.
struct SelectionFilter {
  const BillEvent& oBill;
  const SettlementSide& side;

  std::string Id(Key sKey, std::int32_t nRow) const { return NumberText(GetBillField(oBill, sKey, nRow)); }
  std::string OpenItemsOfBody() const;
  std::string EntriesOfBody() const;
  std::string PartnerCondition(Key sView, Key sColumn) const;
  std::int32_t HeadCurrency() const { return GetBillLong(oBill, "FCurrencyID"_key, kHead); }
  std::string CurrencyCondition(Key sView) const;
  std::string OfOpenItems(std::string sFilter) const;
  std::string OfRefundBills(std::string sFilter, const Ref<Object>& oQuery) const;
};

std::string NameOf(Key sKey) { return std::string(sKey.view()); }

/// The rows already in the body, each as a condition; ends in a blank.
std::string SelectionFilter::OpenItemsOfBody() const {
  const std::string sView = NameOf(side.sOpenView);
  const std::int32_t nRows = GetEntryRowCount(oBill, 1, false);
  std::string sRows;
  for (std::int32_t nRow = 1; nRow <= nRows; ++nRow) {
    sRows += "(" + sView + ".FBillID =" + Id("FInterID"_key, nRow);
    sRows += " and " + sView + ".FEntryID_HXD_SRC = " + Id("FEntryID_HXD_SRC"_key, nRow);
    sRows += " and " + sView + ".FClassTypeID_SRC = " + Id("FClassID_SRC"_key, nRow);
    sRows += ") or ";
  }
  // Required: the cut leaves the blank before the last "or " in place.
  if (!sRows.empty()) sRows.resize(sRows.size() - 3);
  return sRows;
}

/// The rows already in the body as a list of entry ids.
std::string SelectionFilter::EntriesOfBody() const {
  const std::int32_t nRows = GetEntryRowCount(oBill, 1, false);
  std::string sRows;
  for (std::int32_t nRow = 1; nRow <= nRows; ++nRow) {
    if (nRow > 1) sRows += ",";
    sRows += Id("FEntryID_SRC"_key, nRow);
  }
  return sRows;
}

std::string SelectionFilter::PartnerCondition(Key sView, Key sColumn) const {
  const std::int32_t nPartner = GetBillLong(oBill, side.sPartner, kHead);
  if (nPartner == 0) return "";
  return " and " + NameOf(sView) + "." + NameOf(sColumn) + " =" + std::to_string(nPartner);
}

/// A bill in base currency may draw bills of every currency, one in a foreign currency that currency and the base.
std::string SelectionFilter::CurrencyCondition(Key sView) const {
  const std::int32_t nCurrency = HeadCurrency();
  if (nCurrency == kBaseCurrency) return "";
  return "  And " + NameOf(sView) + ".fCurrencyid in(1," + std::to_string(nCurrency) + ")";
}

std::string SelectionFilter::OfOpenItems(std::string sFilter) const {
  const std::string sRows = OpenItemsOfBody();
  if (sFilter.empty()) sFilter = "  1=1 ";
  sFilter += PartnerCondition(side.sOpenView, side.sOpenViewPartner);
  if (HeadCurrency() < 1) return sFilter;
  sFilter += CurrencyCondition(side.sOpenView);
  if (!sRows.empty()) sFilter += " and not (" + sRows + ")";
  return sFilter;
}

std::string SelectionFilter::OfRefundBills(std::string sFilter, const Ref<Object>& oQuery) const {
  const std::string sView = NameOf(side.sRefundView);
  const std::string sRows = EntriesOfBody();
  if (sFilter.empty()) sFilter = "  1=1 ";
  sFilter += PartnerCondition(side.sRefundView, side.sRefundViewPartner);
  if (HeadCurrency() < 1) return sFilter;
  sFilter += CurrencyCondition(side.sRefundView);
  if (!sRows.empty()) sFilter += " and " + sView + ".FID not in(" + sRows + ")";
  // The newest bill comes first.
  oQuery->put(Member::Filter, "HeadSort"_key, " " + sView + ".Fbillid desc");
  return sFilter;
}

}  // namespace

void SettlementBill::m_BillInterface_BeforeSelBills(std::int32_t nBillType, const Ref<Object>& oQuery,
                                                    Variant& vFilter) {
  const BillEvent oBill = Bill();
  const SelectionFilter filter{oBill, side_};
  if (nBillType == side_.nOpenKind) {
    vFilter = filter.OfOpenItems(Concat(vFilter));
  } else if (nBillType == side_.nRefundKind) {
    vFilter = filter.OfRefundBills(Concat(vFilter), oQuery);
  }
}

}  // namespace arap
