#pragma once

#include <chrono>

namespace desk {

/// Waiting for a lock that another seat holds, by asking again. Every seat asks at random moments, and the more often
/// the longer it has waited, so that none starves beside seats that come and go.
class Patience {
 public:
  explicit Patience(int nMilliseconds);
  /// Sleeps a moment; false when the time is up.
  bool wait();

 private:
  using Clock = std::chrono::steady_clock;
  Clock::time_point start_ = Clock::now();
  Clock::time_point end_;
};

}  // namespace desk
