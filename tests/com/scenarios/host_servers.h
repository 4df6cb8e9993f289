#pragma once

#include <memory>
#include <vector>

#include "bridge/handles.h"

namespace arap::testing {

class HostClass;

/// While one lives, the server components of the host can be made through COM by their ProgIDs: each creation asks the
/// thread's platform. ProgIDs that the machine doesn't know are entered in its registry; the classes themselves are
/// registered for this process alone.
class HostServers {
 public:
  HostServers();
  ~HostServers();
  HostServers(const HostServers&) = delete;
  HostServers& operator=(const HostServers&) = delete;

 private:
  std::vector<std::unique_ptr<HostClass>> classes_;
};

}  // namespace arap::testing
