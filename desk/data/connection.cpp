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

// SQLite looks through all names of a statement for each of them.
constexpr std::size_t kMostNames = 1000;

/// The places of each "?" outside a literal.
std::vector<qsizetype> parameters_of(const QString& sSql) {
  std::vector<qsizetype> aPlaces;
  bool bLiteral = false;
  for (qsizetype i = 0; i < sSql.size(); ++i) {
    if (sSql[i] == u'\'') bLiteral = !bLiteral;
    if (!bLiteral && sSql[i] == u'?') aPlaces.push_back(i);
  }
  return aPlaces;
}

/// Gives each parameter a name. Binding by name finds its place at once; binding by position makes up a name for each
/// value anew.
std::vector<QString> name_parameters(QString& sSql, const std::vector<qsizetype>& aPlaces) {
  std::vector<QString> aNames;
  QString sNamed;
  qsizetype nCopied = 0;
  for (const qsizetype nPlace : aPlaces) {
    aNames.push_back(QStringLiteral(":p%1").arg(aNames.size()));
    sNamed += QStringView(sSql).sliced(nCopied, nPlace - nCopied);
    sNamed += aNames.back();
    nCopied = nPlace + 1;
  }
  sNamed += QStringView(sSql).sliced(nCopied);
  sSql = sNamed;
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
  PreparedStatement statement{std::string(sSql), QSqlQuery(database_), {}, 0, {}, nullptr, {}};
  statement.query.setForwardOnly(true);
  QString sNamed = QString::fromStdString(engine_.spelled(sSql));
  const std::vector<qsizetype> aPlaces = parameters_of(sNamed);
  statement.nParameters = aPlaces.size();
  if (aPlaces.size() <= kMostNames) statement.aNames = name_parameters(sNamed, aPlaces);
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
