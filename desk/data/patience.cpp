#include "data/patience.h"

#include <algorithm>
#include <random>
#include <thread>

namespace desk {

namespace {

using Microseconds = std::chrono::microseconds;

constexpr Microseconds kShortest{200};
constexpr Microseconds kLongest{4000};
// From then on a seat asks as often as it may.
constexpr Microseconds kLongWait{400'000};

Microseconds random_pause(Microseconds longest) {
  thread_local std::minstd_rand engine(std::random_device{}());
  return Microseconds(std::uniform_int_distribution<Microseconds::rep>(kShortest.count(), longest.count())(engine));
}

}  // namespace

Patience::Patience(int nMilliseconds) : end_(start_ + std::chrono::milliseconds(nMilliseconds)) {}

bool Patience::wait() {
  const Clock::time_point now = Clock::now();
  if (now >= end_) return false;
  const auto waited = std::min(std::chrono::duration_cast<Microseconds>(now - start_), kLongWait);
  const Microseconds longest = kLongest - (kLongest - 2 * kShortest) * waited.count() / kLongWait.count();
  const auto left = std::chrono::duration_cast<Microseconds>(end_ - now);
  std::this_thread::sleep_for(std::min(random_pause(longest), left));
  return true;
}

}  // namespace desk
