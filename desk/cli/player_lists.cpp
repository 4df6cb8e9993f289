#include <algorithm>

#include "cli/player.h"
#include "engine/list_window.h"

namespace desk {

namespace {

/// The ids of the bills of these numbers; a number that the list lacks stays in `sMissing`.
std::vector<std::int32_t> bills_of(const Rows& lines, std::vector<std::string> aNumbers, std::string& sMissing) {
  std::vector<std::int32_t> aBills;
  for (std::size_t n = 0; n < lines.size(); ++n) {
    const auto found = std::find(aNumbers.begin(), aNumbers.end(), lines.text(n, "FBillNo"));
    if (found == aNumbers.end()) continue;
    aBills.push_back(lines.integer(n, "FBillID"));
    aNumbers.erase(found);
  }
  if (!aNumbers.empty()) sMissing = aNumbers.front();
  return aBills;
}

}  // namespace

void ScenarioPlayer::batch(const std::vector<std::string>& args) {
  const std::string& sKind = args[0];
  const OpenListWindow list =
      open_list_window(session_.database(), BillTemplate::shipped(find_bill_kind(sKind)->sTemplate));
  if (args[2] == "all") {
    list->select_all();
  } else {
    std::string sMissing;
    list->select_bills(bills_of(list->lines(), {args.begin() + 2, args.end()}, sMissing));
    if (!sMissing.empty()) fail("there is no " + sKind + " " + sMissing + "; see \"desk show BOOK bills\"");
  }
  tell("batch " + args[1] + " on " + std::to_string(list->selection().size()) + " lines of the " + sKind + " list");
  const std::size_t nTold = session_.shown_results.size();
  const Outcome outcome = list->press(args[1]);
  for (std::size_t n = nTold; n < session_.shown_results.size(); ++n) {
    tell(session_.shown_results[n]);
    messages_.push_back(session_.shown_results[n]);
  }
  if (!outcome) refused("the command " + args[1], outcome.sReason);
}

}  // namespace desk
