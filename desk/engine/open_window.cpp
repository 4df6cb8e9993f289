#include "engine/open_window.h"

#include "frame/plugin_entry.h"

namespace desk {

OpenBillWindow::OpenBillWindow(Host host, std::shared_ptr<const BillTemplate> bill,
                               const arap::Ref<arap::Object>& oPlugin)
    : window_(arap::make_object<BillWindow>(std::move(host), std::move(bill))) {
  try {
    window_->open(oPlugin);
  } catch (...) {
    reset();
    throw;
  }
}

OpenBillWindow& OpenBillWindow::operator=(OpenBillWindow&& other) noexcept {
  if (this == &other) return *this;
  reset();
  std::swap(window_, other.window_);
  return *this;
}

void OpenBillWindow::reset() noexcept {
  const arap::Ref<BillWindow> window = std::exchange(window_, {});
  if (!window) return;
  try {
    window->close();
  } catch (const arap::AutomationError&) {
    // The owner is on its way out and has nobody to tell; the plug-in is let go in any case.
  } catch (const DeskError&) {
    // The edit lock of a book that can't be written is left to the clean-up of the next seat.
  }
}

OpenBillWindow open_bill_window(Host host, std::shared_ptr<const BillTemplate> bill) {
  const std::string sProgID = std::string(arap::kLibraryName) + "." + bill->sPluginClass;
  return OpenBillWindow(std::move(host), std::move(bill), arap::CreatePublicObject(sProgID));
}

}  // namespace desk
