#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "frame/automation.h"
#include "frame/conversions.h"

namespace arap {

/// A typed view on an object of the contract: a value that holds one reference and spells the contract's own member
/// names. A call on Nothing raises 91.
class View {
 public:
  View() = default;
  explicit View(Ref<Object> object) : object_(std::move(object)) {}
  /// Raises 424 when the value isn't an object.
  explicit View(const Variant& value) : object_(value.object()) {}

  bool IsNothing() const { return !object_; }
  const Ref<Object>& object() const { return object_; }
  operator Variant() const { return Variant(object_); }

 protected:
  template <class... A>
  Variant get(Member member, A&&... args) const {
    return target().get(member, std::forward<A>(args)...);
  }
  template <class... A>
  Variant call(Member member, A&&... args) const {
    return target().call(member, std::forward<A>(args)...);
  }
  template <class... A>
  void put(Member member, A&&... args) const {
    target().put(member, std::forward<A>(args)...);
  }
  /// For calls whose by-reference arguments are looked at afterwards.
  Variant invoke(Member member, Access access, Arguments args) const { return target().invoke(member, access, args); }

 private:
  Object& target() const {
    if (!object_) throw AutomationError(ErrorNumber::ObjectNotSet);
    return *object_;
  }

  Ref<Object> object_;
};

/// The host's map: text to Variant, ordered, keys without regard to case.
class Dictionary : public View {
 public:
  using View::View;
  /// Reading a key that is absent raises the host's error; writing one adds it.
  Variant Value(const Variant& vKey) const { return get(Member::Value, vKey); }
  void SetValue(const Variant& vKey, const Variant& vValue) const { put(Member::Value, vKey, vValue); }
  bool Lookup(const Variant& vKey) const { return ToBoolean(call(Member::Lookup, vKey)); }
  Variant GetValue(const Variant& vKey, const Variant& vDefault) const {
    return call(Member::GetValue, vKey, vDefault);
  }
  std::int32_t Size() const { return LongOf(get(Member::Size)); }
  /// Key at the 1-based index.
  Variant Name(std::int32_t nIndex) const { return get(Member::Name, nIndex); }
};

/// The definition of a field of the bill's template: FKey, FFieldName, FPage, FSourceType, FSRCTableName, ...
using FieldInfo = Dictionary;
/// One value of one field in one row: FFLD, FDSP, FFND, FOLD, FModify, FCtlType.
using FieldRecord = Dictionary;

/// The host's growable array; 1-based.
class Vector : public View {
 public:
  using View::View;
  std::int32_t Size() const { return LongOf(get(Member::Size)); }
  std::int32_t UBound() const { return LongOf(get(Member::UBound)); }
  /// 0 when the Vector is empty.
  std::int32_t LBound() const { return LongOf(get(Member::LBound)); }
  Variant Item(std::int32_t nIndex) const { return get(Member::Item, nIndex); }
  void Add(const Variant& vValue) const { call(Member::Add, vValue); }
  void Remove(std::int32_t nIndex) const { call(Member::Remove, nIndex); }
};

/// An ADO recordset.
class Recordset : public View {
 public:
  using View::View;
  bool Eof() const { return ToBoolean(get(Member::Eof)); }
  bool Bof() const { return ToBoolean(get(Member::Bof)); }
  std::int32_t RecordCount() const { return LongOf(get(Member::RecordCount)); }
  void MoveFirst() const { call(Member::MoveFirst); }
  void MoveNext() const { call(Member::MoveNext); }
  /// Narrows to the matching records and goes to the first of them.
  void SetFilter(const Variant& vFilter) const { put(Member::Filter, vFilter); }
  /// Value of a column of the current record, by name or 0-based index: Fields(vColumn).Value.
  Variant Value(const Variant& vColumn) const {
    return View(get(Member::Fields, vColumn)).object()->get(Member::Value);
  }
};

}  // namespace arap
