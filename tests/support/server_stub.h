#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "support/containers.h"

namespace arap::testing {

/// A server object made of answers. A property that is put keeps its value; a member without an answer raises 438.
class ServerStub final : public HostObject {
 public:
  using Handler = std::function<Variant(Arguments)>;
  struct Call {
    Member member;
    Access access;
    std::vector<Variant> args;  // as they were given
  };

  explicit ServerStub(std::string sTypeName) : type_(std::move(sTypeName)) {}
  std::string type_name() const override { return type_; }

  /// The handler may write into the arguments: by-reference ones come back changed.
  ServerStub& on(Member member, Handler handler);
  ServerStub& answers(Member member, Variant vAnswer);
  ServerStub& fails(Member member, std::int32_t nNumber, std::string sDescription);
  /// The member answers 438 again.
  ServerStub& lacks(Member member);
  /// A property that may be put and read.
  ServerStub& property(Member member, Variant vValue = {});
  /// Calls of the member count as reads in the trace.
  ServerStub& quiet(Member member);

  /// Every call while the trace records.
  const std::vector<Call>& calls() const { return calls_; }
  std::vector<Call> calls_of(Member member) const;
  std::size_t count(Member member) const { return calls_of(member).size(); }
  /// The arguments of the last call of the member; none when there was none.
  std::vector<Variant> last(Member member) const;
  /// The value of a property.
  Variant value(Member member) const;

 private:
  struct Answer {
    Member member;
    Handler handler;  // empty for a property
    Variant value;
    bool bQuiet = false;
  };
  Answer& answer_of(Member member);
  Answer* find(Member member);
  Variant handle(Member member, Access access, Arguments args) override;
  bool is_read(Member member, Access access) const override;

  std::string type_;
  std::vector<Answer> answers_;
  std::vector<Call> calls_;
};

}  // namespace arap::testing
