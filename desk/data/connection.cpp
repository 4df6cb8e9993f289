#include "data/connection.h"

#include <QSqlError>
#include <QVariant>
#include <atomic>

namespace desk {
namespace {

// Primary result codes of SQLite.
enum SqliteCode {
  kBusy = 5,
  kLocked = 6,
  kReadOnly = 8,
  kIoError = 10,
  kCorrupt = 11,
  kFull = 13,
  kCantOpen = 14,
  kConstraint = 19,
  kNotADatabase = 26,
};

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

void throw_sql_error(const QSqlError& error, const std::string& sWhere) {
  const std::string sEngine = error.databaseText().toStdString();
  switch (error.nativeErrorCode().toInt() & 0xff) {
    case kBusy:
    case kLocked:
      throw DeskError(ErrorKind::Locked, "The book is locked by another program", sWhere,
                      "Wait until the other one has finished, then try again");
    case kFull:
      throw DeskError(ErrorKind::DiskFull, "The disk is full; nothing was changed", sWhere, "Make room and try again");
    case kReadOnly:
      throw DeskError(ErrorKind::ReadOnly, "The book can't be written", sWhere,
                      "Check the rights on the file and on its folder");
    case kCorrupt:
      throw DeskError(ErrorKind::Damaged, "The book is damaged: " + sEngine, sWhere, "Go back to a backup copy");
    case kNotADatabase:
      throw DeskError(ErrorKind::NotABook, "The file is not a book", sWhere, "Choose a file that the desk has made");
    case kConstraint: throw DeskError(ErrorKind::Constraint, "The book refuses the change: " + sEngine, sWhere);
    case kCantOpen:
      throw DeskError(ErrorKind::ReadOnly, "The book can't be opened: " + sEngine, sWhere,
                      "Check the rights on the file and on its folder");
    case kIoError:
      throw DeskError(ErrorKind::Other, "The book can't be read or written, nothing was changed: " + sEngine, sWhere,
                      "Check the room on the disk and the disk itself, then try again");
    default: break;
  }
  if (sEngine.find("no such table") != std::string::npos)
    throw DeskError(ErrorKind::Damaged, "The book lacks a table: " + sEngine, sWhere, "Go back to a backup copy");
  throw DeskError(ErrorKind::Other, "The database refuses the statement: " + sEngine, sWhere);
}

PreparedStatement& StatementCache::prepare(std::string_view sSql) {
  if (const auto found = by_text_.find(sSql); found != by_text_.end()) {
    statements_.splice(statements_.begin(), statements_, found->second);
    return statements_.front();
  }
  QSqlQuery query(database_);
  query.setForwardOnly(true);
  QString sNamed = QString::fromUtf8(sSql.data(), static_cast<qsizetype>(sSql.size()));
  std::vector<QString> aParameters = name_parameters(sNamed);
  if (!query.prepare(sNamed)) throw_sql_error(query.lastError(), std::string(sSql));
  if (statements_.size() >= capacity_) {
    by_text_.erase(statements_.back().sSql);
    statements_.pop_back();
  }
  statements_.push_front({std::string(sSql), std::move(query), std::move(aParameters), nullptr});
  by_text_.emplace(statements_.front().sSql, statements_.begin());
  return statements_.front();
}

void StatementCache::clear() {
  by_text_.clear();
  statements_.clear();
}

Database::Connection::Connection(const std::string& sPath, const Options& options)
    : name(next_connection_name()), database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name)) {
  database.setDatabaseName(QString::fromStdString(sPath));
  database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(options.nBusyTimeoutMs));
  statements = std::make_unique<StatementCache>(database, options.nCachedStatements);
}

Database::Connection::~Connection() {
  statements.reset();
  database.close();
  database = QSqlDatabase();
  QSqlDatabase::removeDatabase(name);
}

}  // namespace desk
