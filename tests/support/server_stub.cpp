#include "support/server_stub.h"

#include <algorithm>

namespace arap::testing {

ServerStub::Answer* ServerStub::find(Member member) {
  const auto found = std::find_if(answers_.begin(), answers_.end(),
                                  [member](const Answer& answer) { return answer.member == member; });
  return found == answers_.end() ? nullptr : &*found;
}

ServerStub::Answer& ServerStub::answer_of(Member member) {
  if (Answer* pKnown = find(member)) return *pKnown;
  return answers_.emplace_back(Answer{member, {}, {}, false});
}

ServerStub& ServerStub::on(Member member, Handler handler) {
  answer_of(member).handler = std::move(handler);
  return *this;
}

ServerStub& ServerStub::answers(Member member, Variant vAnswer) {
  return on(member, [vAnswer = std::move(vAnswer)](Arguments) { return vAnswer; });
}

ServerStub& ServerStub::fails(Member member, std::int32_t nNumber, std::string sDescription) {
  return on(member, [nNumber, sType = type_, sText = std::move(sDescription)](Arguments) -> Variant {
    throw AutomationError(nNumber, sType, sText);
  });
}

ServerStub& ServerStub::lacks(Member member) {
  std::erase_if(answers_, [member](const Answer& answer) { return answer.member == member; });
  return *this;
}

ServerStub& ServerStub::property(Member member, Variant vValue) {
  Answer& answer = answer_of(member);
  answer.handler = nullptr;
  answer.value = std::move(vValue);
  return *this;
}

ServerStub& ServerStub::quiet(Member member) {
  answer_of(member).bQuiet = true;
  return *this;
}

std::vector<ServerStub::Call> ServerStub::calls_of(Member member) const {
  std::vector<Call> aFound;
  std::copy_if(calls_.begin(), calls_.end(), std::back_inserter(aFound),
               [member](const Call& call) { return call.member == member; });
  return aFound;
}

std::vector<Variant> ServerStub::last(Member member) const {
  const std::vector<Call> aFound = calls_of(member);
  return aFound.empty() ? std::vector<Variant>{} : aFound.back().args;
}

Variant ServerStub::value(Member member) const {
  for (const Answer& answer : answers_) {
    if (answer.member == member) return answer.value;
  }
  return {};
}

Variant ServerStub::handle(Member member, Access access, Arguments args) {
  if (trace().records(false)) calls_.push_back({member, access, {args.begin(), args.end()}});
  Answer* pAnswer = find(member);
  if (pAnswer == nullptr) no_such_member(member);
  if (pAnswer->handler) {
    const Handler handler = pAnswer->handler;  // it may script this stub anew
    return handler(args);
  }
  if (access == Access::Get || args.empty()) return pAnswer->value;
  pAnswer->value = args.back();
  return {};
}

bool ServerStub::is_read(Member member, Access access) const {
  for (const Answer& answer : answers_) {
    if (answer.member == member) return answer.bQuiet || access == Access::Get;
  }
  return access == Access::Get;
}

}  // namespace arap::testing
