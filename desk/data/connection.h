#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data/database.h"

/// What Database keeps behind its interface; included by the data layer only.
namespace desk {

/// Tells a failed statement as a DeskError that says what to do. `sWhere` is the book or the statement.
[[noreturn]] void throw_sql_error(const QSqlError& error, const std::string& sWhere);

/// A statement that the engine has compiled, with the names of its columns.
struct PreparedStatement {
  std::string sSql;
  QSqlQuery query;
  std::vector<QString> aParameters;  // their names, in order
  std::shared_ptr<const Rows::Columns> columns;
};

/// The prepared statements of one connection by their text; the least recently used one goes first.
class StatementCache {
 public:
  StatementCache(const QSqlDatabase& database, std::size_t nCapacity) : database_(database), capacity_(nCapacity) {}
  PreparedStatement& prepare(std::string_view sSql);
  void clear();
  std::size_t size() const { return statements_.size(); }

 private:
  QSqlDatabase database_;
  std::size_t capacity_;
  std::list<PreparedStatement> statements_;  // most recently used first
  std::unordered_map<std::string_view, std::list<PreparedStatement>::iterator> by_text_;
};

struct Database::Connection {
  Connection(const std::string& sPath, const Options& options);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  QString name;
  QSqlDatabase database;
  std::unique_ptr<StatementCache> statements;
};

}  // namespace desk
