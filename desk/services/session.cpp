#include "services/session.h"

#include "engine/containers.h"
#include "frame/open_choices.h"
#include "frame/plugin_entry.h"

namespace desk {

namespace {

// The library reads user and book out of one text of items "key=value;key={value}".
void refuse_marks(std::string_view sMarks, const std::string& sText, const std::string& sWhat) {
  if (sText.find_first_of(sMarks) == std::string::npos) return;
  throw DeskError(ErrorKind::BadValue, "the " + sWhat + " can't hold any of " + std::string(sMarks), sText,
                  "choose another " + sWhat);
}

}  // namespace

Session::Session(Database& database, std::string_view sUserName)
    : database_(database), user_name_(sUserName), platform_(registry_), tasks_(database, [this] { return seat(); }) {
  refuse_marks("=;{}", user_name_, "user name");
  refuse_marks("{}", database.path(), "name of the book");
  const Rows rows = database.query("SELECT FUserID FROM t_User WHERE FName = ?", {Bind(user_name_)});
  if (rows.empty()) {
    throw DeskError(ErrorKind::BadValue, "the book has no user \"" + user_name_ + "\"", database.path(),
                    "log in under a user of this book");
  }
  user_id_ = rows.integer(0, "FUserID");
  props_string_ = "UserName=" + user_name_ + ";UserID=" + std::to_string(user_id_) +
                  ";ConnectString={Provider=desk;Data Source=" + database_.path() + "};Language=chs";
  for (const std::string_view sProgID :
       {arap::open_choices::kDictionary, arap::open_choices::kVector, arap::open_choices::kTool})
    registry_.add(sProgID, [sProgID] { return make_engine_object(sProgID); });
  for (const std::string_view sName : arap::PublicClassNames()) {
    const std::string sProgID = std::string(arap::kLibraryName) + "." + std::string(sName);
    registry_.add(sProgID, [sProgID] { return arap::CreatePublicObject(sProgID); });
  }
  platform_.set_before_box([this] { database_.end_view(); });
  register_login(*this);
  register_general_ledger(*this);
  register_system_values(*this);
  register_settlement_services(*this);
  register_other_services(*this);
  register_aged_report(*this);
  register_related_bills(*this);
  register_vouchers(*this);
  register_type_service(*this);
  register_bill_list(*this);
  register_small_services(*this);
  activate();
}

Session::~Session() {
  try {
    tasks_.release_all();
  } catch (const DeskError&) {
    // A seat that ends on a broken connection leaves its tasks to the clean-up of the next one.
  }
  try {
    if (&arap::CurrentPlatform() == &platform_) arap::InstallPlatform(nullptr);
  } catch (const arap::AutomationError&) {
    // No platform is installed any more: another seat of this thread has taken it away already.
  }
}

Seat Session::seat() { return {platform_.ComputerName().value_or("NoName"), platform_.ProcessId(), user_name_}; }

std::string_view edit_function(std::int32_t nClassType) {
  switch (nClassType) {
    case 1000201: return "AR0224";
    case 1000202: return "AP0224";
    case 1000205: return "AR0302";
    case 1000206: return "AP0302";
    default: return "";
  }
}

}  // namespace desk
