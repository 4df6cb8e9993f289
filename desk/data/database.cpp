#include "data/database.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlRecord>
#include <QVariant>
#include <cmath>
#include <limits>

#include "data/connection.h"
#include "data/schema.h"

namespace desk {
namespace {

// Marks a file as one of our books, beside the version of its tables.
constexpr int kApplicationId = 0x44455342;
constexpr std::int64_t kExactInDouble = std::int64_t{1} << 53;

QVariant to_qt(const Bind& bind) {
  switch (bind.type()) {
    case Bind::Type::Null: return {};
    case Bind::Type::Integer: return QVariant(static_cast<qlonglong>(bind.integer()));
    case Bind::Type::Real: return QVariant(bind.real());
    case Bind::Type::Text: return QVariant(QString::fromStdString(bind.text()));
  }
  return {};
}

Value from_integer(std::int64_t nValue) {
  if (nValue >= std::numeric_limits<std::int32_t>::min() && nValue <= std::numeric_limits<std::int32_t>::max())
    return static_cast<std::int32_t>(nValue);
  if (nValue >= -kExactInDouble && nValue <= kExactInDouble) return static_cast<double>(nValue);
  return std::to_string(nValue);
}

/// The value itself, without a conversion: its type is known.
template <class T>
const T& get(const QVariant& value) {
  return *static_cast<const T*>(value.constData());
}

Value from_qt(const QVariant& value) {
  if (value.isNull()) return arap::Null{};
  switch (value.typeId()) {
    case QMetaType::LongLong: return from_integer(get<qlonglong>(value));
    case QMetaType::Double: return get<double>(value);
    case QMetaType::QString: {
      const QByteArray text = get<QString>(value).toUtf8();
      return std::string_view(text.data(), static_cast<std::size_t>(text.size()));
    }
    case QMetaType::Bool: return value.toBool();
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::ULongLong: return from_integer(value.toLongLong());
    default: {
      const QByteArray text = value.toString().toUtf8();
      return std::string_view(text.data(), static_cast<std::size_t>(text.size()));
    }
  }
}

std::shared_ptr<const Rows::Columns> columns_of(const QSqlQuery& query) {
  const QSqlRecord record = query.record();
  Rows::Columns columns;
  for (int i = 0; i < record.count(); ++i) columns.push_back(record.fieldName(i).toStdString());
  return std::make_shared<const Rows::Columns>(std::move(columns));
}

void run(PreparedStatement& statement, const Binds& binds) {
  if (binds.size() != statement.aParameters.size())
    throw DeskError(ErrorKind::Other, "The statement has another number of parameters", statement.sSql);
  for (std::size_t i = 0; i < binds.size(); ++i) statement.query.bindValue(statement.aParameters[i], to_qt(binds[i]));
  if (statement.query.exec()) return;
  const QSqlError error = statement.query.lastError();
  statement.query.finish();
  throw_sql_error(error, statement.sSql);
}

/// The statements of a script; a ";" in a text or comment ends none.
std::vector<std::string> split_script(std::string_view sScript) {
  std::vector<std::string> statements(1);
  for (std::size_t i = 0; i < sScript.size(); ++i) {
    const char c = sScript[i];
    if (c == '-' && sScript.substr(i, 2) == "--") {
      i = std::min(sScript.find('\n', i), sScript.size());
      statements.back() += '\n';
    } else if (c == '\'') {
      const std::size_t nEnd = std::min(sScript.find('\'', i + 1), sScript.size() - 1);
      statements.back() += sScript.substr(i, nEnd - i + 1);
      i = nEnd;
    } else if (c == ';') {
      statements.emplace_back();
    } else {
      statements.back() += c;
    }
  }
  std::erase_if(statements, [](const std::string& s) { return s.find_first_not_of(" \r\n\t") == std::string::npos; });
  return statements;
}

}  // namespace

Database::Database(std::string sPath, Options options) : path_(std::move(sPath)), options_(options) {}
Database::~Database() = default;

std::unique_ptr<Database> Database::create(const std::string& sPath, Options options) {
  QFile file(QString::fromStdString(sPath));
  if (file.exists())
    throw DeskError(ErrorKind::Other, "There is a file of that name already", sPath, "Choose another name");
  if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
    throw DeskError(ErrorKind::MissingFile, "The book can't be made", sPath,
                    "Check that the folder exists and can be written");
  }
  file.close();
  try {
    std::unique_ptr<Database> database(new Database(sPath, options));
    database->connect(true);
    create_schema(*database);
    return database;
  } catch (...) {
    file.remove();
    throw;
  }
}

std::unique_ptr<Database> Database::open(const std::string& sPath, Options options) {
  if (!QFileInfo(QString::fromStdString(sPath)).isFile())
    throw DeskError(ErrorKind::MissingFile, "There is no such book", sPath, "Check the name, or make a new book");
  std::unique_ptr<Database> database(new Database(sPath, options));
  database->connect(false);
  return database;
}

void Database::connect(bool bCreate) {
  connection_ = std::make_unique<Connection>(path_, options_);
  if (!connection_->database.open()) throw_sql_error(connection_->database.lastError(), path_);
  if (bCreate) {
    query("PRAGMA journal_mode = WAL");
    query("PRAGMA application_id = " + std::to_string(kApplicationId));
    query("PRAGMA user_version = " + std::to_string(kSchemaVersion));
  } else {
    check_is_book();
  }
  query("PRAGMA synchronous = FULL");
  query("PRAGMA foreign_keys = ON");
}

void Database::check_is_book() {
  std::int32_t nApplication = 0;
  std::int32_t nVersion = 0;
  try {
    nApplication = query("PRAGMA application_id").integer(0, "application_id");
    nVersion = query("PRAGMA user_version").integer(0, "user_version");
  } catch (const DeskError& error) {
    throw DeskError(error.kind(), error.problem(), path_, error.hint());
  }
  if (nApplication != kApplicationId)
    throw DeskError(ErrorKind::NotABook, "The file is not a book", path_, "Choose a file that the desk has made");
  if (nVersion != kSchemaVersion) {
    throw DeskError(ErrorKind::WrongVersion,
                    "The book has version " + std::to_string(nVersion) + ", this program reads version " +
                        std::to_string(kSchemaVersion),
                    path_, "Open it with the program that made it");
  }
}

Rows Database::query(std::string_view sSql, const Binds& binds) {
  PreparedStatement& statement = connection_->statements->prepare(sSql);
  run(statement, binds);
  if (!statement.columns) statement.columns = columns_of(statement.query);
  const int nColumns = static_cast<int>(statement.columns->size());
  std::vector<Value> cells;
  while (statement.query.next())
    for (int i = 0; i < nColumns; ++i) cells.push_back(from_qt(statement.query.value(i)));
  const QSqlError error = statement.query.lastError();
  statement.query.finish();
  if (error.isValid()) throw_sql_error(error, statement.sSql);
  return Rows(statement.columns, std::move(cells));
}

std::int64_t Database::exec(std::string_view sSql, const Binds& binds) {
  PreparedStatement& statement = connection_->statements->prepare(sSql);
  run(statement, binds);
  const int nChanged = statement.query.numRowsAffected();
  statement.query.finish();
  return nChanged;
}

void Database::exec_script(std::string_view sScript) {
  for (const std::string& sStatement : split_script(sScript)) {
    QSqlQuery query(connection_->database);
    if (!query.exec(QString::fromStdString(sStatement))) throw_sql_error(query.lastError(), sStatement);
  }
  connection_->statements->clear();  // the tables that they were compiled for may have changed
}

Value Database::value(std::string_view sSql, const Binds& binds, const Value& vDefault) {
  const Rows rows = query(sSql, binds);
  return rows.empty() ? vDefault : rows.at(0, std::size_t{0});
}

std::size_t Database::cached_statements() const { return connection_->statements->size(); }

Transaction::Transaction(Database& database) : database_(database), level_(database.depth_) {
  database_.exec(level_ == 0 ? "BEGIN IMMEDIATE" : "SAVEPOINT level_" + std::to_string(level_));
  ++database_.depth_;
}

void Transaction::commit() {
  if (!open_ || database_.depth_ != level_ + 1)
    throw DeskError(ErrorKind::Other, "A transaction is committed out of turn", database_.path());
  database_.exec(level_ == 0 ? "COMMIT" : "RELEASE level_" + std::to_string(level_));
  open_ = false;
  --database_.depth_;
}

Transaction::~Transaction() {
  if (!open_) return;
  database_.depth_ = level_;
  try {
    if (level_ == 0) {
      database_.exec("ROLLBACK");
    } else {
      database_.exec("ROLLBACK TO level_" + std::to_string(level_));
      database_.exec("RELEASE level_" + std::to_string(level_));
    }
  } catch (const DeskError&) {
    // After a full disk the engine has already rolled back by itself.
  }
}

}  // namespace desk
