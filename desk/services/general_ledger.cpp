#include <QDateTime>

#include <map>

#include "data/automation_names.h"
#include "frame/conversions.h"
#include "services/component.h"
#include "services/session.h"

namespace desk {

namespace {

// The currencies of the book, each read once and kept until Refresh.
class CurrencyCache {
 public:
  explicit CurrencyCache(Database& database) : database_(database) {}

  Ref<arap::Object> get(std::int32_t nCurrencyID) {
    Ref<arap::Object>& oCurrency = currencies_[nCurrencyID];
    if (!oCurrency) oCurrency = read(nCurrencyID);
    return oCurrency;
  }
  void refresh() { currencies_.clear(); }

 private:
  Ref<arap::Object> read(std::int32_t nCurrencyID) {
    const Rows rows = database_.query(
        "SELECT FName, FExchangeRate, FOperator, FScale FROM t_Currency WHERE FCurrencyID = ?", {Bind(nCurrencyID)});
    if (rows.empty())
      throw arap::AutomationError(arap::ErrorNumber::InvalidProcedureCall, "currency " + std::to_string(nCurrencyID));
    const auto constant = [](const Variant& vValue) { return Handler([vValue](Arguments) { return vValue; }); };
    return make_component("Currency", {{Member::ExchangeRate, constant(rows.real(0, "FExchangeRate"))},
                                       {Member::Operator, constant(rows.text(0, "FOperator"))},
                                       {Member::ScaleX, constant(rows.integer(0, "FScale"))},
                                       {Member::Name, constant(rows.text(0, "FName"))}});
  }

  Database& database_;
  std::map<std::int32_t, Ref<arap::Object>> currencies_;
};

// The general-ledger client services of this seat: rights, action log, currencies.
class GLDataService final : public Component {
 public:
  explicit GLDataService(Session& session) : Component("GLData"), session_(session), currencies_(session.database()) {
    on(Member::AccessCheck, [this](Arguments args) {
      return Variant(access_check(long_argument(args, 0), long_argument(args, 1), long_argument(args, 2)));
    });
    on(Member::WriteLog, [this](Arguments args) {
      write_log(text_argument(args, 0), long_argument(args, 1), text_argument(args, 2));
      return Variant();
    });
    on(Member::GetCurrency, [this](Arguments args) { return Variant(currencies_.get(long_argument(args, 0))); });
    on(Member::DeleteOptions, [this](Arguments args) {
      if (!args.empty()) delete_options_ = arap::ToBoolean(args[0]);
      return Variant(delete_options_);
    });
    on(Member::CurrencySet, [this](Arguments) {
      return Variant(make_component("CurrencySet", {{Member::Refresh, [oKeep = Ref<GLDataService>(this)](Arguments) {
                                                       oKeep->currencies_.refresh();
                                                       return Variant();
                                                     }}}));
    });
  }

 private:
  bool access_check(std::int32_t nSubSystem, std::int32_t nObject, std::int32_t nRight) {
    const Rows rows = session_.database().query(
        "SELECT FRights FROM t_User_Right WHERE FUserID = ? AND FSubSystem = ? AND FObject = ?",
        {Bind(session_.user_id()), Bind(nSubSystem), Bind(nObject)});
    return !rows.empty() && (rows.integer(0, "FRights") & nRight) == nRight;
  }

  void write_log(const std::string& sCode, std::int32_t nResult, const std::string& sText) {
    const std::string sNow = QDateTime::currentDateTime().toString(Qt::ISODate).toStdString();
    session_.database().exec(
        "INSERT INTO t_Log (FTime, FUser, FMachine, FCode, FResult, FText) VALUES (?, ?, ?, ?, ?, ?)",
        {Bind(sNow), Bind(session_.user_name()), Bind(session_.seat().sMachine), Bind(sCode), Bind(nResult),
         Bind(sText)});
  }

  Session& session_;
  CurrencyCache currencies_;
  bool delete_options_ = false;
};

}  // namespace

void register_general_ledger(Session& session) {
  session.registry().add("NUVLPCGLView.GLData",
                         [&session] { return Ref<arap::Object>(arap::make_object<GLDataService>(session)); });
}

}  // namespace desk
