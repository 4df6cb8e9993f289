#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

#include "frame/text.h"

namespace arap {

class Object;

/// Raises 91.
[[noreturn]] void raise_object_not_set();

/// Intrusive reference to an Object (or a class derived from it); one pointer wide, single-threaded. A member of
/// Nothing is an Automation error: going through an empty reference raises 91.
template <class T>
class Ref {
 public:
  Ref() noexcept = default;
  Ref(std::nullptr_t) noexcept {}
  /// Takes a share of `object`.
  explicit Ref(T* object) noexcept : object_(object) {
    if (object_ != nullptr) object_->add_reference();
  }
  Ref(const Ref& other) noexcept : Ref(other.object_) {}
  Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  template <class U>
  requires std::derived_from<U, T> &&(!std::same_as<U, T>)Ref(const Ref<U>& other) noexcept : Ref(other.get()) {}
  Ref& operator=(Ref other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Ref() {
    if (object_ != nullptr) object_->release_reference();
  }

  T* get() const noexcept { return object_; }
  T* operator->() const {
    if (object_ == nullptr) raise_object_not_set();
    return object_;
  }
  T& operator*() const { return *operator->(); }
  explicit operator bool() const noexcept { return object_ != nullptr; }
  friend bool operator==(const Ref& a, const Ref& b) noexcept { return a.object_ == b.object_; }

 private:
  T* object_ = nullptr;
};

template <class T, class... Args>
Ref<T> make_object(Args&&... args) {
  return Ref<T>(new T(std::forward<Args>(args)...));
}

struct Empty {};
struct Null {};
/// The omitted argument of an optional parameter.
struct Missing {};
/// Days since 1899-12-30; the fraction is the time of day (the DATE of OLE Automation).
struct Date {
  double days = 0;
  friend bool operator==(Date, Date) = default;
};

/// A value that passes the door between host and plug-in. 16-bit and 32-bit integers keep their width, a boolean is
/// -1 or 0 as a number, text is UTF-8. Currency and decimal values of a database arrive as double.
class Variant {
 public:
  /// In the order of the alternatives.
  enum class Type : std::uint8_t { Empty, Null, Boolean, Integer, Long, Double, Date, Text, Object, Missing };

  Variant() noexcept = default;
  Variant(arap::Empty) noexcept {}
  Variant(arap::Null value) noexcept : value_(value) {}
  Variant(arap::Missing value) noexcept : value_(value) {}
  Variant(std::same_as<bool> auto value) noexcept : value_(value) {}
  Variant(std::int16_t value) noexcept : value_(value) {}
  Variant(std::int32_t value) noexcept : value_(value) {}
  Variant(double value) noexcept : value_(value) {}
  Variant(arap::Date value) noexcept : value_(value) {}
  Variant(arap::Text value) noexcept : value_(std::move(value)) {}
  Variant(Key key) noexcept : value_(arap::Text(key)) {}
  Variant(std::string_view text) : value_(arap::Text(text)) {}
  Variant(const std::string& text) : value_(arap::Text(std::string_view(text))) {}
  Variant(const char* text) : value_(arap::Text(std::string_view(text))) {}
  /// An empty reference is Nothing.
  Variant(Ref<Object> object) noexcept;
  template <class T>
  requires std::derived_from<T, Object> Variant(const Ref<T>& object)
  noexcept : Variant(Ref<Object>(object)) {}
  Variant(const Variant&) noexcept;
  Variant(Variant&&) noexcept;
  Variant& operator=(const Variant&) noexcept;
  Variant& operator=(Variant&&) noexcept;
  ~Variant();

  Type type() const noexcept { return static_cast<Type>(value_.index()); }
  bool is_empty() const noexcept { return type() == Type::Empty; }
  bool is_null() const noexcept { return type() == Type::Null; }
  bool is_missing() const noexcept { return type() == Type::Missing; }
  bool is_text() const noexcept { return type() == Type::Text; }
  bool is_object() const noexcept { return type() == Type::Object; }
  bool is_nothing() const noexcept;

  /// The alternative itself; asking for another one is a programming error. For conversions see conversions.h.
  template <class T>
  const T& as() const {
    return *std::get_if<T>(&value_);
  }
  std::string_view text() const { return as<arap::Text>().view(); }

  /// The object held, which can be Nothing. Raises 424 when the value isn't an object.
  const Ref<Object>& object() const;

 private:
  std::variant<arap::Empty, arap::Null, bool, std::int16_t, std::int32_t, double, arap::Date, arap::Text, Ref<Object>,
               arap::Missing>
      value_;
};

}  // namespace arap

// Object completes Ref<Object>; a Variant can't be used without it.
#include "frame/automation.h"  // IWYU pragma: export
