#pragma once

#include <cstddef>

#include "services/session.h"

class QWidget;

namespace desk {

/// Shows what a command has left for the user beside boxes: vouchers, result lists and lists of bills. Each is shown
/// once.
class SeatNews {
 public:
  explicit SeatNews(Session& session);
  void show(QWidget* pParent);

 private:
  Session& session_;
  std::size_t vouchers_seen_;
  std::size_t results_seen_;
  std::size_t bills_seen_;
};

}  // namespace desk
