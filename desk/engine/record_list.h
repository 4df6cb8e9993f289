#pragma once

#include <cstdint>
#include <string>

#include "engine/plugin_list.h"

namespace desk {

/// What a list of records shows: one line a record, each with its id as FInterID and its number as FBillNo.
struct RecordListContent {
  std::int32_t nClassType = 0;
  std::string sCaption;
  std::string sPluginClass;  // "clsInvoice"
  std::string sSql;
  Binds binds;
};

/// A list of records that the desk keeps without a template of its own: invoices, opening balances.
class RecordList final : public PluginList {
 public:
  /// The database outlives the list.
  RecordList(Database& database, RecordListContent content);

  const RecordListContent& content() const { return content_; }

 protected:
  Rows read_lines() override { return database().query(content_.sSql, content_.binds); }

 private:
  RecordListContent content_;
};

using OpenRecordList = OpenWindow<RecordList>;

/// Opens a list with the plug-in's own class behind it.
OpenRecordList open_record_list(Database& database, RecordListContent content);

}  // namespace desk
