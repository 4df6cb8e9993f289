#include "services/settlement_tables.h"

#include <array>
#include <utility>

namespace desk {

std::string side_sql(const SettlementTables& tables, std::string_view sTemplate) {
  const std::string sClass = std::to_string(tables.nClass);
  const std::string sAdvance = std::to_string(tables.nAdvanceType);
  const std::string sImmediate = std::to_string(tables.nImmediateType);
  const std::array<std::pair<std::string_view, std::string_view>, 17> names{{{"bill", tables.sBill},
                                                                             {"entry", tables.sEntry},
                                                                             {"class", sClass},
                                                                             {"type", tables.sType},
                                                                             {"advance", sAdvance},
                                                                             {"partner", tables.sPartner},
                                                                             {"got", tables.sGot},
                                                                             {"number", tables.sNumber},
                                                                             {"invoice", tables.sInvoice},
                                                                             {"invoiceclasses", tables.sInvoiceClasses},
                                                                             {"invoicepartner", tables.sInvoicePartner},
                                                                             {"other", tables.sOther},
                                                                             {"otherclasses", tables.sOtherClasses},
                                                                             {"immediate", sImmediate},
                                                                             {"openview", tables.sOpenView},
                                                                             {"viewpartner", tables.sViewPartner},
                                                                             {"partners", tables.sPartnerTable}}};
  std::string sSql;
  while (true) {
    const std::size_t nOpen = sTemplate.find('{');
    sSql += sTemplate.substr(0, nOpen);
    if (nOpen == std::string_view::npos) return sSql;
    const std::size_t nClose = sTemplate.find('}', nOpen);
    const std::string_view sName = sTemplate.substr(nOpen + 1, nClose - nOpen - 1);
    for (const auto& [name, text] : names) {
      if (name == sName) sSql += text;
    }
    sTemplate.remove_prefix(nClose + 1);
  }
}

}  // namespace desk
