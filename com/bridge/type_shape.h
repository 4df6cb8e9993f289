#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "bridge/handles.h"
#include "frame/automation.h"

/// What a dispatch interface says of itself: read from its type information once, then plain data.
namespace arap::com {

struct Parameter {
  std::string sName;
  /// VT_VARIANT for anything goes, VT_DISPATCH for every object, VT_ARRAY | VT_VARIANT for the rest of a vararg.
  VARTYPE type = VT_VARIANT;
  bool bByReference = false;
  bool bOptional = false;
};

/// One way to use a member: a method, or one of the accesses of a property.
struct Function {
  DISPID id = DISPID_UNKNOWN;
  std::string sName;
  INVOKEKIND kind = INVOKE_FUNC;
  std::vector<Parameter> aParameters;  // a put has the new value last
  bool bVararg = false;                // the last parameter takes any number of values
  std::optional<Member> member;
  std::optional<Event> event;
};

class TypeShape {
 public:
  /// Functions of IUnknown and IDispatch, which a dual interface reports as its own, are left out.
  static std::shared_ptr<const TypeShape> read(ITypeInfo* info);

  const GUID& id() const { return id_; }
  /// The interface's name as it stands in the library.
  const std::string& name() const { return name_; }
  /// The function of that id whose kind is among `kinds`; nullptr when there is none.
  const Function* find(DISPID id, int kinds) const;
  /// Any function of that name, without regard to case.
  const Function* find(std::string_view sName) const;
  const Function* find(Event event) const;

 private:
  void read_functions(ITypeInfo* info, const TYPEATTR& attributes);
  void read_variables(ITypeInfo* info, const TYPEATTR& attributes);

  GUID id_{};
  std::string name_;
  std::vector<Function> functions_;
};

/// Attributes of a type, given back at the end of the scope.
class TypeAttributes {
 public:
  explicit TypeAttributes(ITypeInfo* info);
  ~TypeAttributes() { info_->ReleaseTypeAttr(attributes_); }
  TypeAttributes(const TypeAttributes&) = delete;
  TypeAttributes& operator=(const TypeAttributes&) = delete;
  const TYPEATTR* operator->() const { return attributes_; }
  const TYPEATTR& operator*() const { return *attributes_; }

 private:
  ComPtr<ITypeInfo> info_;
  TYPEATTR* attributes_ = nullptr;
};

/// The name of a type; "" when it has none.
std::string name_of_type(ITypeInfo* info);
/// The name as TypeName shows it: without one leading underscore.
std::string_view without_underscore(std::string_view sName);

/// Which of the interfaces that a class implements.
enum class Implemented { Default, DefaultSource };
/// That interface of a coclass, as a dispatch interface; empty when it has none.
ComPtr<ITypeInfo> interface_of_class(ITypeInfo* coclass, Implemented which);
/// The class of a library whose default interface that is; empty when there is none.
ComPtr<ITypeInfo> class_with_default(ITypeLib& library, const GUID& interface_id);

}  // namespace arap::com
