#include "engine/plugin_list.h"

#include <numeric>

#include "data/automation_names.h"
#include "data/recordset.h"
#include "data/trace.h"
#include "engine/containers.h"

namespace desk {

using arap::Event;

/// The data object of a list.
class ListServerObject final : public arap::Object {
 public:
  explicit ListServerObject(Ref<PluginList> list) : list_(std::move(list)) {}
  std::string type_name() const override { return "ListDataServer"; }

  Variant invoke(Member member, Access access, Arguments args) override {
    if (tracing()) trace_call(*this, member, access, args);
    if (member == Member::ClassTypeId) return list_->class_type();
    const std::optional<Variant> vAnswer = list_->data_call(member, args);
    if (!vAnswer) no_such_member(member);
    return *vAnswer;
  }

 private:
  Ref<PluginList> list_;
};

namespace {

Ref<arap::Object> record_of(const Value& vValue) {
  const auto oRecord = arap::make_object<HostDictionary>();
  oRecord->set("FFLD", vValue);
  oRecord->set("FDSP", vValue);
  return oRecord;
}

}  // namespace

PluginList::PluginList(Database& database, std::int32_t nClassType, std::span<const ShippedBand> aBands,
                       std::span<const ShippedTool> aTools)
    : PluginWindow(aBands, aTools), database_(database), class_type_(nClassType) {}

void PluginList::open(const Ref<arap::Object>& oPlugin) {
  refresh();
  bind(oPlugin);
  fire(Event::AfterGetData, {});
}

void PluginList::refresh() {
  lines_ = read_lines();
  selection_.clear();
  count_refresh();
}

void PluginList::select_all() {
  selection_.resize(lines_.size());
  std::iota(selection_.begin(), selection_.end(), std::size_t{0});
}

void PluginList::select_lines(std::vector<std::size_t> aLines) {
  for (const std::size_t nLine : aLines) {
    if (nLine >= lines_.size()) throw AutomationError(ErrorNumber::SubscriptOutOfRange, std::to_string(nLine));
  }
  selection_ = std::move(aLines);
}

Ref<arap::Object> PluginList::selected_rows() const {
  const auto oRows = arap::make_object<HostVector>();
  for (const std::size_t nLine : selection_) {
    const auto oRow = arap::make_object<HostDictionary>();
    for (const char* sColumn : {"FBillID", "FBillNo", "FInterID"}) {
      if (lines_.find_column(sColumn) >= 0) oRow->set(sColumn, record_of(lines_.at(nLine, sColumn)));
    }
    oRow->set("FClassTypeID", record_of(class_type_));
    oRows->add(oRow);
  }
  return oRows;
}

Variant PluginList::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args);
  switch (member) {
    case Member::ListData: return make_recordset(lines_);
    case Member::ListDataServer: return arap::make_object<ListServerObject>(Ref<PluginList>(this));
    case Member::SelectedRows: return selected_rows();
    case Member::BarControl: return bar_object();
    default: no_such_member(member);
  }
}

}  // namespace desk
