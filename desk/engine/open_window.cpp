#include "engine/bill_window.h"
#include "frame/plugin_entry.h"

namespace desk {

arap::Ref<BillWindow> open_bill_window(Host host, std::shared_ptr<const BillTemplate> bill) {
  const std::string sProgID = std::string(arap::kLibraryName) + "." + bill->sPluginClass;
  const auto window = arap::make_object<BillWindow>(std::move(host), std::move(bill));
  window->open(arap::CreatePublicObject(sProgID));
  return window;
}

}  // namespace desk
