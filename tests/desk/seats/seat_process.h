#pragma once

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <new>

namespace desk::testing {

/// Starts a seat in a process of its own. No connection to its book may be open here: a copy of it would share its
/// locks. The seat ends with 0, or with 1 when its work raised something.
template <class Work>
pid_t start_seat(Work&& work) {
  const pid_t nSeat = fork();
  if (nSeat != 0) return nSeat;
  int nCode = 0;
  try {
    work();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "seat %d: %s\n", static_cast<int>(getpid()), error.what());
    nCode = 1;
  }
  _exit(nCode);
}

/// Waits for a seat: its exit code, or less the number of the signal that killed it.
inline int end_of_seat(pid_t nSeat) {
  int nStatus = 0;
  if (waitpid(nSeat, &nStatus, 0) != nSeat) return -1000;
  return WIFSIGNALED(nStatus) ? -WTERMSIG(nStatus) : WEXITSTATUS(nStatus);
}

/// Something that all seats of a test see.
template <class T>
class Shared {
 public:
  Shared() {
    void* const pMemory = mmap(nullptr, sizeof(T), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (pMemory == MAP_FAILED) throw std::bad_alloc();
    value_ = new (pMemory) T();
  }
  ~Shared() { munmap(value_, sizeof(T)); }
  Shared(const Shared&) = delete;
  Shared& operator=(const Shared&) = delete;
  T* operator->() const { return value_; }

 private:
  T* value_;
};

}  // namespace desk::testing
