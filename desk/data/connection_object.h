#pragma once

#include "data/database.h"
#include "frame/automation.h"

namespace desk {

/// DataServer of a bill: OpenQuery(sSql) on the host's connection. The database outlives the object.
class DataServerObject final : public arap::Object {
 public:
  explicit DataServerObject(Database& database) : database_(database) {}
  std::string type_name() const override { return "DataServer"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

 private:
  Database& database_;
};

/// The connection components: Execute(sConnect, sSql) or Execute(sSql). A statement without a result answers a
/// recordset at EOF. The connect text names no other database: all work goes to the open book.
class AppConnectionObject final : public arap::Object {
 public:
  explicit AppConnectionObject(Database& database) : database_(database) {}
  std::string type_name() const override { return "AppConnection"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

 private:
  Database& database_;
};

}  // namespace desk
