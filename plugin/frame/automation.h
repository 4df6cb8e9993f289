#pragma once

#include <array>
#include <cstdint>
#include <exception>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "frame/names.h"
#include "frame/variant.h"

/// The door between host and plug-in: late-bound objects, Variants, events with by-reference arguments, errors with
/// number, source and description. com/ turns COM objects into these and back, desk/ and the tests implement them.
namespace arap {

/// Numbers of the Basic runtime and of automation that this library raises itself.
enum class ErrorNumber : std::int32_t {
  InvalidProcedureCall = 5,
  Overflow = 6,
  SubscriptOutOfRange = 9,
  DivisionByZero = 11,
  TypeMismatch = 13,
  ObjectNotSet = 91,
  InvalidUseOfNull = 94,
  ObjectRequired = 424,
  CannotCreateObject = 429,
  NoSuchMember = 438,
  WrongNumberOfArguments = 450,
  KeyAlreadyExists = 457,
  NoSuchEvents = 459,
  FunctionInUse = 16390,
};

/// The only exception that crosses the door.
class AutomationError : public std::exception {
 public:
  AutomationError(std::int32_t nNumber, std::string sSource, std::string sDescription)
      : number_(nNumber), source_(std::move(sSource)), description_(std::move(sDescription)) {}
  /// An error of this library with the runtime's own description; `sDetail` follows it.
  explicit AutomationError(ErrorNumber number, std::string_view sDetail = {});

  std::int32_t number() const noexcept { return number_; }
  const std::string& source() const noexcept { return source_; }
  const std::string& description() const noexcept { return description_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  std::int32_t number_;
  std::string source_;
  std::string description_;
};

enum class Access : std::uint8_t { Get, Put, PutRef, Call };

/// Arguments in the order they are written. A by-reference argument comes back changed in its place. A put has the new
/// value last.
using Arguments = std::span<Variant>;

/// Argument `nIndex` (0-based). Raises 450 when the caller gave fewer.
inline Variant& argument(Arguments args, std::size_t nIndex) {
  if (nIndex >= args.size()) throw AutomationError(ErrorNumber::WrongNumberOfArguments);
  return args[nIndex];
}

class EventSource;

/// An automation object. Reference-counted, single-threaded.
class Object {
 public:
  Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  /// What Basic's TypeName answers.
  virtual std::string type_name() const = 0;

  /// The one call. Access::Get reads a property (with arguments where it has them), Call runs a method; an
  /// implementation may treat the two alike. Raises 438 for a member that the object lacks.
  virtual Variant invoke(Member member, Access access, Arguments args) = 0;

  /// The source of this object's events; nullptr when it has none.
  virtual EventSource* event_source() { return nullptr; }

  /// The host's shape of the calls: arguments by value, without a look back at them.
  template <class... A>
  Variant get(Member member, A&&... args) {
    return pass(member, Access::Get, std::forward<A>(args)...);
  }
  template <class... A>
  Variant call(Member member, A&&... args) {
    return pass(member, Access::Call, std::forward<A>(args)...);
  }
  /// `args` are the property's arguments, the new value last.
  template <class... A>
  void put(Member member, A&&... args) {
    pass(member, Access::Put, std::forward<A>(args)...);
  }

  void add_reference() noexcept { ++references_; }
  void release_reference() noexcept {
    if (--references_ == 0) end();
  }

 protected:
  virtual ~Object() = default;
  /// Raises 438 and names the member.
  [[noreturn]] void no_such_member(Member member) const;

 private:
  template <class... A>
  Variant pass(Member member, Access access, A&&... args) {
    std::array<Variant, sizeof...(A)> values{Variant(std::forward<A>(args))...};
    return invoke(member, access, values);
  }

  /// Out of line: GCC 12 loses the decrement above when it sees the count written again behind it and an exception is
  /// under way.
  void end() noexcept;

  std::int32_t references_ = 0;
};

/// Hears the events of a source. An AutomationError thrown here goes to the host that fired.
class EventSink {
 public:
  virtual void on_event(Event event, Arguments args) = 0;

 protected:
  ~EventSink() = default;
};

class EventSource {
 public:
  using Cookie = std::uint32_t;
  virtual Cookie advise(EventSink& sink) = 0;
  virtual void unadvise(Cookie cookie) = 0;

 protected:
  ~EventSource() = default;
};

inline Variant::Variant(Ref<Object> object) noexcept : value_(std::move(object)) {}
inline Variant::Variant(const Variant&) noexcept = default;
inline Variant::Variant(Variant&&) noexcept = default;
inline Variant& Variant::operator=(const Variant&) noexcept = default;
inline Variant& Variant::operator=(Variant&&) noexcept = default;
inline Variant::~Variant() = default;
inline bool Variant::is_nothing() const noexcept { return is_object() && !as<Ref<Object>>(); }
inline const Ref<Object>& Variant::object() const {
  if (!is_object()) throw AutomationError(ErrorNumber::ObjectRequired);
  return as<Ref<Object>>();
}

}  // namespace arap
