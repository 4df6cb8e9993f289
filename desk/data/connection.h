#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data/database.h"
#include "data/engine.h"

/// What Database keeps behind its interface; included by the data layer only.
namespace desk {

/// A connection of Qt under a name of its own.
struct NamedConnection {
  explicit NamedConnection(const QString& sDriver);
  ~NamedConnection();
  NamedConnection(const NamedConnection&) = delete;
  NamedConnection& operator=(const NamedConnection&) = delete;

  QString name;
  QSqlDatabase database;
};

/// A statement that the engine has compiled, with the names of its columns.
struct PreparedStatement {
  std::string sSql;
  QSqlQuery query;
  QString sUncompiled;               // of a statement that can't be compiled ahead
  std::vector<QString> aParameters;  // their names, in order
  std::shared_ptr<const Rows::Columns> columns;
  std::vector<bool> aExact;  // columns that come as the text of a number of any size
};

/// The prepared statements of one connection by their text; the least recently used one goes first.
class StatementCache {
 public:
  StatementCache(const QSqlDatabase& database, const Engine& engine, std::size_t nCapacity)
      : database_(database), engine_(engine), capacity_(nCapacity) {}
  PreparedStatement& prepare(std::string_view sSql);
  void clear();
  std::size_t size() const { return statements_.size(); }

 private:
  QSqlDatabase database_;
  const Engine& engine_;
  std::size_t capacity_;
  std::list<PreparedStatement> statements_;  // most recently used first
  std::unordered_map<std::string_view, std::list<PreparedStatement>::iterator> by_text_;
};

struct Database::Connection {
  Connection(const Engine& engine, const Options& options);

  NamedConnection named;
  std::unique_ptr<StatementCache> statements;
};

}  // namespace desk
