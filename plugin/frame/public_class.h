#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "frame/event_binding.h"
#include "frame/host_contract.h"
#include "frame/module_state.h"

/// What the public classes share. A class runs its terminator in its own destructor; the steps there are wrapped one by
/// one in ResumeNext, as no error may leave a release.
namespace arap {

/// Type names of the three event sources of the host.
inline constexpr std::string_view kBillEvent = "BillEvent";
inline constexpr std::string_view kListEvents = "ListEvents";
inline constexpr std::string_view kBaseClassEvent = "BaseClassEvent";

/// True when any of Col equals itm by plain value comparison; stops at the first match. False for an empty Col.
bool Inside(const Variant& itm, std::span<const Variant> Col);
template <class... Values>
bool Inside(const Variant& itm, const Values&... values) {
  const std::array<Variant, sizeof...(Values)> Col{Variant(values)...};
  return Inside(itm, std::span<const Variant>(Col));
}

/// An optional by-reference argument: the caller's own, or a value that nobody looks at.
inline Variant& OptionalArgument(Arguments args, std::size_t nIndex, Variant& vDefault) {
  return nIndex < args.size() && !args[nIndex].is_missing() ? args[nIndex] : vDefault;
}
/// An object argument that may be Nothing, or left out, as a view.
template <class T>
T ObjectArgument(Arguments args, std::size_t nIndex) {
  const Variant& vObject = argument(args, nIndex);
  return vObject.is_object() ? T(vObject) : T();
}

/// What TypeName answers: "Nothing" for an empty reference.
std::string TypeNameOf(const Ref<Object>& object);
/// The object as the named interface; Nothing stays Nothing. Raises 13 for an object of another type.
const Ref<Object>& CastTo(const Ref<Object>& object, std::string_view sTypeName);

/// The income and expense types, fresh from the server.
Recordset FetchInOutTypes();

/// Gives back the tasks that the host's edit lock left under the bill. Does nothing for an id of 0.
void ReleaseEditTasks(std::int32_t nBillId, std::string_view sFunctionCode);

/// A class that the host creates by ProgID.
class PublicClass : public Object {
 public:
  std::string type_name() const override { return std::string(name_); }
  Variant invoke(Member member, Access access, Arguments args) override;

 protected:
  /// `sName` is the class's own name, of static storage.
  explicit PublicClass(std::string_view sName) : name_(sName) {}

  virtual void Show(const Ref<Object>& oSource) = 0;

 private:
  ModuleUse module_;
  std::string_view name_;
};

/// One of the five classes that serve a bill window.
class BillClass : public PublicClass {
 protected:
  explicit BillClass(std::string_view sName) : PublicClass(sName) {}

  /// The task mutex's name of an operation; index 5 is the edit of the bill. "" for an index without one.
  virtual std::string_view GetTaskCode(int nIndex) const = 0;
  /// An event of m_BillInterface.
  virtual void OnBillEvent(Event, Arguments) {}

  BillEvent Bill() const { return BillEvent(m_BillInterface.source()); }

  /// Terminator steps that all five classes have, in an order of their own.
  void ReleaseEditTasksOfBill() noexcept;
  void CommitHeldTask() noexcept;

  EventMember<BillClass> m_BillInterface{*this, &BillClass::OnBillEvent};
  std::int32_t m_lTaskId = 0;
  std::int32_t m_lBillId = 0;
};

/// One of the four bill classes: a bill window and its list, with the public members m_LstInterface, Inside and
/// DoOptToBill.
class ListedBillClass : public BillClass {
 public:
  Variant invoke(Member member, Access access, Arguments args) override;

 protected:
  explicit ListedBillClass(std::string_view sName) : BillClass(sName) {}

  /// Deletes (0), checks (1) or unchecks (2) one bill under a task and writes the action log. vCode becomes the
  /// service's code, vMessage the text for the user; true exactly for code 0. Raises nothing: an error is a message.
  virtual bool DoOptToBill(std::int32_t nTransType, std::int32_t nInterID, std::int32_t nCheckType, Variant& vCode,
                           Variant& vMessage) = 0;

  /// Binds by the exact type name; a source of another type leaves the class silent.
  void Show(const Ref<Object>& oSource) override;
  /// An event of m_LstInterface.
  virtual void OnListEvent(Event, Arguments) {}

  ListEvents List() const { return ListEvents(m_LstInterface.source()); }

  EventMember<ListedBillClass> m_LstInterface{*this, &ListedBillClass::OnListEvent};
};

/// One of the two classes that serve a list window alone.
class ListClass : public PublicClass {
 public:
  Variant invoke(Member member, Access access, Arguments args) override;

 protected:
  explicit ListClass(std::string_view sName) : PublicClass(sName) {}

  /// No test of the type name: another object than ListEvents raises 13.
  void Show(const Ref<Object>& oSource) override;
  /// An event of m_LstInterface.
  virtual void OnListEvent(Event, Arguments) {}

  ListEvents List() const { return ListEvents(m_LstInterface.source()); }

  EventMember<ListClass> m_LstInterface{*this, &ListClass::OnListEvent};
};

}  // namespace arap
