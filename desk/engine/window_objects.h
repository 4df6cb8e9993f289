#pragma once

#include "engine/bill_window.h"

/// The smaller objects of a bill window. They are made when they are asked for and hold the window.
namespace desk {

/// The form of the window: its edit lock, saving, and the selection of source bills.
class BillFormObject final : public arap::Object {
 public:
  explicit BillFormObject(arap::Ref<BillWindow> window) : window_(std::move(window)) {}
  std::string type_name() const override { return "BillForm"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

 private:
  arap::Ref<BillWindow> window_;
};

/// The control with the cells: whether the bill can be edited, locks of fields and cells, the actions of a field.
class BillCtlObject final : public arap::Object {
 public:
  explicit BillCtlObject(arap::Ref<BillWindow> window) : window_(std::move(window)) {}
  std::string type_name() const override { return "BillCtl"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

 private:
  arap::Ref<BillWindow> window_;
};

/// A field on the screen: its text, whether it is visible, its lock.
class ScreenFieldObject final : public arap::Object {
 public:
  ScreenFieldObject(arap::Ref<BillWindow> window, std::size_t nField) : window_(std::move(window)), field_(nField) {}
  std::string type_name() const override { return "ScreenField"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

 private:
  arap::Ref<BillWindow> window_;
  std::size_t field_;
};

/// A page as the template describes it; asked for MDKFields without a key it is the field collection itself.
class EntryObject final : public arap::Object {
 public:
  EntryObject(arap::Ref<BillWindow> window, std::int32_t nPage) : window_(std::move(window)), page_(nPage) {}
  std::string type_name() const override { return "BillEntry"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

 private:
  arap::Ref<BillWindow> window_;
  std::int32_t page_;
};

/// The entry collection of the typed route: Item(1) is the head.
class EntryList final : public arap::Object {
 public:
  explicit EntryList(arap::Ref<BillWindow> window) : window_(std::move(window)) {}
  std::string type_name() const override { return "BillEntrys"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

 private:
  arap::Ref<BillWindow> window_;
};

/// An object with Filter(key), get and put.
class FilterBag final : public arap::Object {
 public:
  explicit FilterBag(arap::Ref<HostDictionary> values) : values_(std::move(values)) {}
  std::string type_name() const override { return "Query"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;
  std::string filter(std::string_view sKey) const;

 private:
  arap::Ref<HostDictionary> values_;
};

}  // namespace desk
