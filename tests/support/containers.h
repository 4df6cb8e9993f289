#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/trace.h"

namespace arap::testing {

/// Number of a key without regard to case, the same for the whole run. Keys named in the program are found by address.
using KeyId = std::int32_t;
KeyId key_id(std::string_view sKey);
KeyId key_id_of(const Variant& vKey);

/// The number that a value or a numeric text stands for; 0 for anything else. Independent of the plug-in's conversions.
double plain_number(const Variant& vValue);
/// The value as plain text: the text itself, a number with 15 digits, "" for Empty, Null and objects.
std::string plain_text(const Variant& vValue);
bool same_name(std::string_view sA, std::string_view sB);

using Pairs = std::initializer_list<std::pair<std::string_view, Variant>>;

/// The host's Dictionary. With a label its writes are recorded: `FAmount[2].FFLD = 5`.
class TestDictionary : public TestObject {
 public:
  TestDictionary() = default;
  TestDictionary(Pairs aPairs);
  std::string type_name() const override { return "Dictionary"; }
  Variant invoke(Member member, Access access, Arguments args) final;

  // --- for tests ---
  TestDictionary& set(std::string_view sKey, Variant vValue);
  /// The value; Empty when there is no such key.
  const Variant& at(std::string_view sKey) const;
  bool has(std::string_view sKey) const { return find(key_id(sKey)) != nullptr; }
  std::size_t size() const { return entries_.size(); }
  const Variant& value_at(std::size_t nIndex) const { return entries_[nIndex].value; }
  std::string_view name_at(std::size_t nIndex) const { return entries_[nIndex].name.view(); }
  void erase(std::string_view sKey);

  const Variant* find(KeyId id) const;
  void set_label(std::string sLabel) { label_ = std::move(sLabel); }
  std::string label() const override { return label_.empty() ? TestObject::label() : label_; }

 private:
  struct Entry {
    KeyId id;
    Text name;
    Variant value;
  };
  std::int32_t position(KeyId id) const;
  void put(const Variant& vKey, const Variant& vValue);
  void index_last();

  std::vector<Entry> entries_;
  std::vector<std::int16_t> index_;  // by key id, once the Dictionary is large
  std::string label_;
};

/// The host's Vector, 1-based.
class TestVector final : public TestObject {
 public:
  TestVector() = default;
  explicit TestVector(std::vector<Variant> aItems) : items(std::move(aItems)) {}
  std::string type_name() const override { return "Vector"; }
  Variant invoke(Member member, Access access, Arguments args) override;
  std::string label() const override { return name.empty() ? TestObject::label() : name; }

  std::vector<Variant> items;
  std::string name;  // with a name, Add and Remove are recorded
};

/// An ADO recordset over a shared table: each copy has its own cursor. Filter takes `name = value` and `name <> value`
/// joined by And. Reading past the end raises 3021, an unknown column 3265.
class TestRecordset final : public TestObject {
 public:
  struct Table {
    std::vector<std::string> columns;
    std::vector<std::vector<Variant>> rows;
  };
  explicit TestRecordset(std::shared_ptr<Table> table);
  std::string type_name() const override { return "Recordset"; }
  Variant invoke(Member member, Access access, Arguments args) override;

  Variant value(const Variant& vColumn) const;
  std::string_view column(const Variant& vColumn) const { return table_->columns[column_index(vColumn)]; }
  const std::string& filter() const { return filter_; }
  Ref<TestRecordset> copy() const { return make_object<TestRecordset>(table_); }

 private:
  bool eof() const { return nRow_ >= static_cast<std::ptrdiff_t>(visible_.size()); }
  std::size_t column_index(const Variant& vColumn) const;
  void apply_filter(std::string sFilter);
  Variant move(Member member);

  std::shared_ptr<Table> table_;
  std::vector<std::size_t> visible_;
  std::ptrdiff_t nRow_ = 0;
  std::string filter_;
};

Ref<TestRecordset> recordset(std::vector<std::string> aColumns, std::vector<std::vector<Variant>> aRows = {});
Ref<TestDictionary> dictionary(Pairs aPairs = {});

/// Scripted answers to SQL texts: the longest text that the query begins with answers, with a fresh cursor; any other
/// query gets an empty recordset.
class SqlScript {
 public:
  using Answer = std::function<Ref<TestRecordset>(std::string_view sSql)>;
  SqlScript& answer(std::string sBegin, Ref<TestRecordset> rows);
  SqlScript& answer(std::string sBegin, Answer answer);
  /// The query that begins so raises this error.
  SqlScript& fail(std::string sBegin, std::int32_t nNumber, std::string sDescription);
  Variant run(std::string_view sSql);
  /// The texts that came, in order (while the trace records).
  std::vector<std::string> texts;

 private:
  std::vector<std::pair<std::string, Answer>> answers_;
};

}  // namespace arap::testing
