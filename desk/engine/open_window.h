#pragma once

#include <memory>
#include <utility>

#include "engine/bill_window.h"

namespace desk {

/// A bill window with a plug-in behind it, owned. While it is open, window and plug-in hold each other; only closing
/// undoes the ring. So nobody opens a window without an owner, and the owner closes it on whatever way it goes.
class OpenBillWindow {
 public:
  /// No window.
  OpenBillWindow() = default;
  /// Binds the plug-in by its Show and builds the bars. An error of the plug-in passes on, with the window closed.
  OpenBillWindow(Host host, std::shared_ptr<const BillTemplate> bill, const arap::Ref<arap::Object>& oPlugin);
  ~OpenBillWindow() { reset(); }
  OpenBillWindow(OpenBillWindow&& other) noexcept { std::swap(window_, other.window_); }
  OpenBillWindow& operator=(OpenBillWindow&& other) noexcept;
  OpenBillWindow(const OpenBillWindow&) = delete;
  OpenBillWindow& operator=(const OpenBillWindow&) = delete;

  /// Closes the window, if there is one. Where the error of a close must be heard, call the window's own close before.
  void reset() noexcept;

  explicit operator bool() const { return static_cast<bool>(window_); }
  BillWindow* get() const { return window_.get(); }
  BillWindow* operator->() const { return window_.get(); }
  BillWindow& operator*() const { return *window_; }

 private:
  arap::Ref<BillWindow> window_;
};

/// Opens a window for a shipped template with the plug-in's own class behind it.
OpenBillWindow open_bill_window(Host host, std::shared_ptr<const BillTemplate> bill);

}  // namespace desk
