#include "engine/window_objects.h"

#include "data/automation_names.h"
#include "data/trace.h"
#include "frame/conversions.h"
#include "frame/open_choices.h"

namespace desk {

Variant BillFormObject::invoke(Member member, Access access, Arguments args) try {
  if (tracing()) trace_call(*this, member, access, args);
  switch (member) {
    case Member::MutexSuccess: return window_->edit_lock_;
    case Member::LockBill: window_->bill_locked_ = true; return {};
    case Member::SaveBill: window_->save_reason_.clear(); return window_->save_bill();
    case Member::NotSave:
      if (!is_put(access)) return window_->not_save_;
      window_->not_save_ = arap::ToBoolean(argument(args, 0));
      return {};
    case Member::DoSelBillExt: {
      const auto* pTool = dynamic_cast<const BarTool*>(argument(args, 0).object().get());
      if (pTool == nullptr) throw AutomationError(ErrorNumber::TypeMismatch, "DoSelBillExt");
      window_->select_sources(pTool->selection_type());
      return {};
    }
    case Member::RefreshToolbar: return {};  // a view draws its bars anew after each command
    case Member::Data: return window_->data(args);
    default: no_such_member(member);
  }
} catch (const DeskError& error) {
  pass_through_door(error, type_name());
}

Variant BillCtlObject::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args);
  switch (member) {
    case Member::BillStatus: {
      const bool bEditable = window_->mode_ != EditMode::ReadOnly && window_->edit_lock_ && !window_->bill_locked_;
      return bEditable ? static_cast<std::int32_t>(window_->mode_) : std::int32_t{0};
    }
    case Member::SetLockProperty:
      window_->lock_property(window_->field_of(argument(args, 1)), arap::ToBoolean(args[0]));
      return {};
    case Member::LockCell:
      window_->lock_cell(window_->field_of(argument(args, 0)), arap::LongOf(argument(args, 1)),
                         arap::ToBoolean(argument(args, 2)));
      return {};
    case Member::DoAction: {
      const std::size_t nField = window_->field_of(argument(args, 0));
      const auto* pRecord = dynamic_cast<const FieldRecord*>(argument(args, 1).object().get());
      if (pRecord == nullptr) return {};  // no record, nothing to compute
      const Ref<DataRow> row(&pRecord->row());
      window_->run_actions(nField, *row);
      return {};
    }
    default: no_such_member(member);
  }
}

Variant ScreenFieldObject::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args, window_->template_->field(field_).sKey);
  FieldState& state = window_->states_[field_];
  switch (member) {
    case Member::Text: {
      const TemplateField& field = window_->template_->field(field_);
      return field.lookUp ? window_->code(field.sKey) : window_->shown(field.sKey);
    }
    case Member::Visible:
      if (!is_put(access)) return state.bVisible;
      state.bVisible = arap::ToBoolean(argument(args, 0));
      return {};
    case arap::open_choices::kScreenFieldLock:
      if (!is_put(access)) return state.bScreenLock;
      state.bScreenLock = arap::ToBoolean(argument(args, 0));
      return {};
    default: no_such_member(member);
  }
}

Variant EntryObject::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args, "Page" + std::to_string(page_));
  switch (member) {
    case Member::KeyField: return window_->template_->page(page_).keyField;
    case Member::MDKFields:
      if (args.empty()) return Ref<arap::Object>(this);
      [[fallthrough]];
    case Member::Item: {
      const std::size_t nField = window_->template_->find(argument(args, 0));
      if (nField == BillTemplate::kNone || window_->template_->field(nField).nPage != page_) {
        throw AutomationError(ErrorNumber::SubscriptOutOfRange, arap::Concat(args[0]));
      }
      return arap::make_object<ScreenFieldObject>(window_, nField);
    }
    default: no_such_member(member);
  }
}

Variant EntryList::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args);
  const auto& aPages = window_->bill().pages();
  switch (member) {
    case Member::Count:
    case Member::Size: return static_cast<std::int32_t>(aPages.size());
    case Member::Default:
    case Member::Item: {
      const std::size_t nPage = checked_position(argument(args, 0), aPages.size()) + 1;
      return arap::make_object<EntryObject>(window_, static_cast<std::int32_t>(nPage));
    }
    default: no_such_member(member);
  }
}

Variant FilterBag::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args);
  if (member != Member::Filter) no_such_member(member);
  if (is_put(access)) {
    values_->set(arap::Concat(argument(args, 0)), argument(args, 1));
    return {};
  }
  return filter(arap::Concat(argument(args, 0)));
}

std::string FilterBag::filter(std::string_view sKey) const {
  const Variant* pValue = values_->find(sKey);
  return pValue == nullptr ? std::string() : arap::Concat(*pValue);
}

}  // namespace desk
