#pragma once

#include <memory>
#include <utility>

#include "data/desk_error.h"
#include "frame/automation.h"

namespace desk {

/// A window with a plug-in behind it, owned. While it is open, window and plug-in hold each other; only closing undoes
/// the ring. So nobody opens a window without an owner, and the owner closes it on whatever way it goes.
template <class Window>
class OpenWindow {
 public:
  /// No window.
  OpenWindow() = default;
  /// Opens the window with this plug-in: binds it by its Show and builds the bars. An error of the plug-in passes on,
  /// with the window closed.
  OpenWindow(arap::Ref<Window> window, const arap::Ref<arap::Object>& oPlugin) : window_(std::move(window)) {
    try {
      window_->open(oPlugin);
    } catch (...) {
      reset();
      throw;
    }
  }
  ~OpenWindow() { reset(); }
  OpenWindow(OpenWindow&& other) noexcept { std::swap(window_, other.window_); }
  OpenWindow& operator=(OpenWindow&& other) noexcept {
    if (this == &other) return *this;
    reset();
    std::swap(window_, other.window_);
    return *this;
  }
  OpenWindow(const OpenWindow&) = delete;
  OpenWindow& operator=(const OpenWindow&) = delete;

  /// Closes the window, if there is one. Where the error of a close must be heard, call the window's own close before.
  void reset() noexcept {
    const arap::Ref<Window> window = std::exchange(window_, {});
    if (!window) return;
    try {
      window->close();
    } catch (const arap::AutomationError&) {
      // The owner is on its way out and has nobody to tell; the plug-in is let go in any case.
    } catch (const DeskError&) {
      // The edit lock of a book that can't be written is left to the clean-up of the next seat.
    }
  }

  explicit operator bool() const { return static_cast<bool>(window_); }
  Window* get() const { return window_.get(); }
  Window* operator->() const { return window_.get(); }
  Window& operator*() const { return *window_; }

 private:
  arap::Ref<Window> window_;
};

}  // namespace desk
