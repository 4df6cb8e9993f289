#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/automation.h"

/// The recording host of the unit tests and benchmarks: native objects that keep every call in order.
namespace arap::testing {

/// The calls that reached the host, one line a call: `BillEvent.SetText(FAmountFor, "0", 0)`,
/// `MsgBox("...", 48, "...") -> 1`. An answer follows behind "->" (objects are left out), an error as
/// `-> error 5`.
class Trace {
 public:
  /// Effects: what changes the host, the messages, the SQL and the server calls, and writes into field records.
  /// All: the reads too. Nothing: for benchmarks.
  enum class Detail : std::uint8_t { Nothing, Effects, All };

  void set_detail(Detail detail) { detail_ = detail; }
  bool records(bool bRead) const { return detail_ == Detail::All || (detail_ == Detail::Effects && !bRead); }

  const std::vector<std::string>& lines() const { return lines_; }
  /// The lines that hold (any of) these parts, in order.
  std::vector<std::string> lines_with(std::string_view sPart) const;
  std::vector<std::string> lines_with_any(const std::vector<std::string>& aParts) const;
  std::size_t count(std::string_view sPart) const { return lines_with(sPart).size(); }
  bool has(std::string_view sPart) const { return count(sPart) > 0; }
  /// 0-based position of the first line with this part; -1 when there is none. For tests of order.
  std::ptrdiff_t position(std::string_view sPart) const;
  /// All lines, each ended by a line feed: for golden traces.
  std::string text() const;
  void clear();
  /// Back to Effects, without lines and without a fault.
  void reset();

  /// The nCall-th host call from now on (reads and container accesses count too) raises this error; 0 disarms.
  void fail_at(std::int64_t nCall, std::int32_t nNumber = kFaultNumber);
  /// True when the fault that was armed last came; a session that ends disarms and leaves the answer.
  bool faulted() const { return faulted_; }
  static constexpr std::int32_t kFaultNumber = -2147467259;

  // --- for the host's objects ---
  struct Slot {
    std::size_t nLine;
    std::uint32_t nGeneration;
  };
  /// Counts a call and raises the armed fault when it is this one's turn.
  void count_call() {
    if (calls_to_fault_ != 0 && --calls_to_fault_ == 0) raise_fault();
  }
  Slot open(std::string sLine);
  void close(Slot slot, const Variant& vAnswer);
  void close_failed(Slot slot, const AutomationError& error);
  void add(std::string sLine) { lines_.push_back(std::move(sLine)); }

 private:
  [[noreturn]] void raise_fault();

  std::vector<std::string> lines_;
  std::uint32_t generation_ = 0;
  Detail detail_ = Detail::Effects;
  std::int64_t calls_to_fault_ = 0;
  std::int32_t fault_number_ = kFaultNumber;
  bool faulted_ = false;
};

/// The one trace; a TestSession resets it.
Trace& trace();

/// How a value stands in a line: texts quoted, numbers with 15 digits, objects by their label.
std::string show(const Variant& vValue);

/// Runs the scenario again and again: in run n the n-th host call after `arm` fails, until a run meets no fault. The
/// scenario builds its world, calls arm(), acts, and checks what must hold after any failure. Answers the number of
/// runs that met a fault.
int FailEachCall(const std::function<void(const std::function<void()>& arm)>& scenario);

/// An object of the host with the label under which it stands in a line.
class TestObject : public Object {
 public:
  virtual std::string label() const { return "<" + type_name() + ">"; }
};

/// A host object whose calls are recorded. handle() does the work; is_read() says which calls only look.
class HostObject : public TestObject {
 public:
  Variant invoke(Member member, Access access, Arguments args) final;

 protected:
  virtual Variant handle(Member member, Access access, Arguments args) = 0;
  virtual bool is_read(Member /*member*/, Access access) const { return access == Access::Get; }
  /// The name before the point of a line.
  virtual std::string trace_name() const { return type_name(); }
};

/// A small host object made of a function.
class PartObject final : public HostObject {
 public:
  using Handler = std::function<Variant(Member, Access, Arguments)>;
  PartObject(std::string sTypeName, Handler handler) : type_(std::move(sTypeName)), handler_(std::move(handler)) {}
  std::string type_name() const override { return type_; }

 private:
  /// A handler answers Missing for a member that the object lacks.
  Variant handle(Member member, Access access, Arguments args) override;

  std::string type_;
  Handler handler_;
};

}  // namespace arap::testing
