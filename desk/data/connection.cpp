#include "data/connection.h"

#include <QSqlError>
#include <QVariant>
#include <atomic>

namespace desk {
namespace {

QString next_connection_name() {
  static std::atomic<int> nLast{0};
  return QStringLiteral("desk-book-%1").arg(++nLast);
}

/// Gives each "?" outside a literal a name. Binding by name finds its place at once; binding by position makes up a
/// name for each value anew.
std::vector<QString> name_parameters(QString& sSql) {
  std::vector<QString> aNames;
  bool bLiteral = false;
  for (qsizetype i = 0; i < sSql.size(); ++i) {
    if (sSql[i] == u'\'') bLiteral = !bLiteral;
    if (bLiteral || sSql[i] != u'?') continue;
    aNames.push_back(QStringLiteral(":p%1").arg(aNames.size()));
    sSql.replace(i, 1, aNames.back());
  }
  return aNames;
}

}  // namespace

NamedConnection::NamedConnection(const QString& sDriver)
    : name(next_connection_name()), database(QSqlDatabase::addDatabase(sDriver, name)) {}

NamedConnection::~NamedConnection() {
  database.close();
  database = QSqlDatabase();
  QSqlDatabase::removeDatabase(name);
}

PreparedStatement& StatementCache::prepare(std::string_view sSql) {
  if (const auto found = by_text_.find(sSql); found != by_text_.end()) {
    statements_.splice(statements_.begin(), statements_, found->second);
    return statements_.front();
  }
  PreparedStatement statement{std::string(sSql), QSqlQuery(database_), {}, {}, nullptr, {}};
  statement.query.setForwardOnly(true);
  QString sNamed = QString::fromStdString(engine_.spelled(sSql));
  statement.aParameters = name_parameters(sNamed);
  if (!engine_.can_prepare(sSql)) {
    statement.sUncompiled = sNamed;
  } else if (!statement.query.prepare(sNamed)) {
    engine_.throw_error(statement.query.lastError(), statement.sSql);
  }
  if (statements_.size() >= capacity_) {
    by_text_.erase(statements_.back().sSql);
    statements_.pop_back();
  }
  statements_.push_front(std::move(statement));
  by_text_.emplace(statements_.front().sSql, statements_.begin());
  return statements_.front();
}

void StatementCache::clear() {
  by_text_.clear();
  statements_.clear();
}

Database::Connection::Connection(const Engine& engine, const Options& options) : named(engine.driver()) {
  engine.address(named.database);
  statements = std::make_unique<StatementCache>(named.database, engine, options.nCachedStatements);
}

}  // namespace desk
