#include "support/containers.h"

#include <algorithm>
#include <numeric>

namespace arap::testing {

namespace {

constexpr std::int32_t kNoCurrentRecord = 3021;
constexpr std::int32_t kNoSuchColumn = 3265;

AutomationError ado_error(std::int32_t nNumber, std::string_view sText) {
  return AutomationError(nNumber, "ADODB.Recordset", std::string(sText));
}

/// A column of a recordset; its Value is that of the current record.
class Field final : public TestObject {
 public:
  Field(Ref<TestRecordset> rows, Variant vColumn) : rows_(std::move(rows)), column_(std::move(vColumn)) {}
  std::string type_name() const override { return "Field"; }
  Variant invoke(Member member, Access, Arguments) override {
    trace().count_call();
    if (member == Member::Value || member == Member::Default) return rows_->value(column_);
    if (member == Member::Name) return rows_->column(column_);
    no_such_member(member);
  }

 private:
  Ref<TestRecordset> rows_;
  Variant column_;
};

std::string_view trimmed(std::string_view sText) {
  const std::size_t nFirst = sText.find_first_not_of(' ');
  if (nFirst == std::string_view::npos) return {};
  return sText.substr(nFirst, sText.find_last_not_of(' ') - nFirst + 1);
}

std::size_t find_and(std::string_view sText) {
  for (std::size_t i = 0; i + 5 <= sText.size(); ++i) {
    if (same_name(sText.substr(i, 5), " and ")) return i;
  }
  return std::string_view::npos;
}

bool holds(const Variant& vValue, std::string_view sWanted) {
  if (sWanted.size() >= 2 && sWanted.front() == '\'')
    return plain_text(vValue) == sWanted.substr(1, sWanted.size() - 2);
  return plain_number(vValue) == plain_number(Variant(sWanted));
}

}  // namespace

Variant TestVector::invoke(Member member, Access access, Arguments args) {
  trace().count_call();
  const auto nSize = static_cast<std::int32_t>(items.size());
  const auto at = [&](const Variant& vIndex) {
    const double dIndex = plain_number(vIndex);
    if (dIndex < 1 || dIndex > nSize) throw AutomationError(ErrorNumber::SubscriptOutOfRange);
    return items.begin() + (static_cast<std::ptrdiff_t>(dIndex) - 1);
  };
  const bool bRecorded = !name.empty() && trace().records(false);
  switch (member) {
    case Member::Size:
    case Member::UBound: return nSize;
    case Member::LBound: return std::int32_t{nSize == 0 ? 0 : 1};
    case Member::Default:
    case Member::Item:
      if (access != Access::Put && access != Access::PutRef) return *at(argument(args, 0));
      *at(argument(args, 0)) = argument(args, 1);
      return {};
    case Member::Add:
      items.push_back(argument(args, 0));
      if (bRecorded) trace().add(name + ".Add(" + show(args[0]) + ")");
      return {};
    case Member::Remove:
      items.erase(at(argument(args, 0)));
      if (bRecorded) trace().add(name + ".Remove(" + show(args[0]) + ")");
      return {};
    default: no_such_member(member);
  }
}

TestRecordset::TestRecordset(std::shared_ptr<Table> table) : table_(std::move(table)) { apply_filter(""); }

std::size_t TestRecordset::column_index(const Variant& vColumn) const {
  const std::vector<std::string>& aColumns = table_->columns;
  if (!vColumn.is_text()) {
    const double dIndex = plain_number(vColumn);
    if (dIndex >= 0 && dIndex < static_cast<double>(aColumns.size())) return static_cast<std::size_t>(dIndex);
  } else {
    for (std::size_t i = 0; i < aColumns.size(); ++i) {
      if (same_name(aColumns[i], vColumn.text())) return i;
    }
  }
  throw ado_error(kNoSuchColumn, "Item cannot be found in the collection: " + plain_text(vColumn));
}

Variant TestRecordset::value(const Variant& vColumn) const {
  const std::size_t nColumn = column_index(vColumn);
  if (eof() || nRow_ < 0) throw ado_error(kNoCurrentRecord, "Either BOF or EOF is True");
  return table_->rows[visible_[static_cast<std::size_t>(nRow_)]].at(nColumn);
}

void TestRecordset::apply_filter(std::string sFilter) {
  filter_ = std::move(sFilter);
  visible_.resize(table_->rows.size());
  std::iota(visible_.begin(), visible_.end(), std::size_t{0});
  nRow_ = 0;
  std::string_view sRest = filter_;
  while (!trimmed(sRest).empty()) {
    const std::size_t nAnd = find_and(sRest);
    const std::string_view sTerm = sRest.substr(0, nAnd);
    sRest = nAnd == std::string_view::npos ? std::string_view{} : sRest.substr(nAnd + 5);
    const bool bUnequal = sTerm.find("<>") != std::string_view::npos;
    const std::size_t nSign = sTerm.find(bUnequal ? "<>" : "=");
    if (nSign == std::string_view::npos) throw ado_error(3001, "Arguments are of the wrong type");
    const std::size_t nColumn = column_index(Variant(trimmed(sTerm.substr(0, nSign))));
    const std::string_view sWanted = trimmed(sTerm.substr(nSign + (bUnequal ? 2 : 1)));
    std::erase_if(visible_,
                  [&](std::size_t nRow) { return holds(table_->rows[nRow].at(nColumn), sWanted) == bUnequal; });
  }
}

Variant TestRecordset::move(Member member) {
  if (visible_.empty()) throw ado_error(kNoCurrentRecord, "Either BOF or EOF is True");
  if (member == Member::MoveFirst) {
    nRow_ = 0;
  } else {
    if (eof()) throw ado_error(kNoCurrentRecord, "Either BOF or EOF is True");
    ++nRow_;
  }
  return {};
}

Variant TestRecordset::invoke(Member member, Access access, Arguments args) {
  trace().count_call();
  switch (member) {
    case Member::Eof: return eof();
    case Member::Bof: return visible_.empty();
    case Member::RecordCount: return static_cast<std::int32_t>(visible_.size());
    case Member::MoveFirst:
    case Member::MoveNext: return move(member);
    case Member::Close: return {};
    case Member::Filter:
      if (access == Access::Get) return filter_;
      apply_filter(plain_text(argument(args, 0)));
      return {};
    case Member::Default:
    case Member::Fields: {
      const Variant vColumn = argument(args, 0);
      column_index(vColumn);
      return make_object<Field>(Ref<TestRecordset>(this), vColumn);
    }
    default: no_such_member(member);
  }
}

Ref<TestRecordset> recordset(std::vector<std::string> aColumns, std::vector<std::vector<Variant>> aRows) {
  return make_object<TestRecordset>(
      std::make_shared<TestRecordset::Table>(TestRecordset::Table{std::move(aColumns), std::move(aRows)}));
}

SqlScript& SqlScript::answer(std::string sBegin, Ref<TestRecordset> rows) {
  return answer(std::move(sBegin), [rows](std::string_view) { return rows->copy(); });
}

SqlScript& SqlScript::answer(std::string sBegin, Answer answer) {
  std::erase_if(answers_, [&](const auto& known) { return known.first == sBegin; });
  answers_.emplace_back(std::move(sBegin), std::move(answer));
  return *this;
}

SqlScript& SqlScript::fail(std::string sBegin, std::int32_t nNumber, std::string sDescription) {
  return answer(std::move(sBegin), [nNumber, sDescription](std::string_view) -> Ref<TestRecordset> {
    throw AutomationError(nNumber, "ADODB.Connection", sDescription);
  });
}

Variant SqlScript::run(std::string_view sSql) {
  if (trace().records(false)) texts.emplace_back(sSql);
  const std::pair<std::string, Answer>* pBest = nullptr;
  for (const auto& known : answers_) {
    if (sSql.starts_with(known.first) && (pBest == nullptr || known.first.size() > pBest->first.size())) pBest = &known;
  }
  if (pBest == nullptr) return recordset({"FNone"});
  return pBest->second(sSql);
}

}  // namespace arap::testing
