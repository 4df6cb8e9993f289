#include "data/database.h"

#include <QSqlError>
#include <QSqlField>
#include <QSqlRecord>
#include <QVariant>
#include <charconv>
#include <limits>
#include <optional>
#include <utility>

#include "data/connection.h"
#include "data/patience.h"
#include "data/qt_text.h"
#include "data/schema.h"
#include "frame/conversions.h"

namespace desk {
namespace {

// Marks a book as one of ours, beside the version of its tables.
constexpr int kApplicationId = 0x44455342;
// The server's type of sums: numbers of any size.
constexpr int kServerNumeric = 1700;
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

/// The text of a number of any size.
Value from_exact(const QVariant& value) {
  if (value.isNull()) return arap::Null{};
  const std::string sText = value.toString().toStdString();
  const char* const pEnd = sText.data() + sText.size();
  std::int64_t nValue = 0;
  const auto result = std::from_chars(sText.data(), pEnd, nValue);
  if (result.ec == std::errc() && result.ptr == pEnd) return from_integer(nValue);
  return value.toDouble();
}

void note_columns(PreparedStatement& statement, const Engine& engine) {
  const QSqlRecord record = statement.query.record();
  Rows::Columns columns;
  for (int i = 0; i < record.count(); ++i) {
    columns.push_back(engine.column_name(record.fieldName(i).toStdString()));
    statement.aExact.push_back(record.field(i).typeID() == kServerNumeric);
  }
  statement.columns = std::make_shared<const Rows::Columns>(std::move(columns));
}

void run(PreparedStatement& statement, const Binds& binds, const Engine& engine) {
  if (binds.size() != statement.aParameters.size())
    throw DeskError(ErrorKind::Other, "The statement has another number of parameters", statement.sSql);
  for (std::size_t i = 0; i < binds.size(); ++i) statement.query.bindValue(statement.aParameters[i], to_qt(binds[i]));
  const bool bRun =
      statement.sUncompiled.isEmpty() ? statement.query.exec() : statement.query.exec(statement.sUncompiled);
  if (bRun) return;
  const QSqlError error = statement.query.lastError();
  statement.query.finish();
  engine.throw_error(error, statement.sSql);
}

std::vector<Value> fetch(PreparedStatement& statement, const Engine& engine) {
  if (!statement.columns) note_columns(statement, engine);
  const int nColumns = static_cast<int>(statement.columns->size());
  std::vector<Value> cells;
  while (statement.query.next()) {
    for (int i = 0; i < nColumns; ++i) {
      const QVariant value = statement.query.value(i);
      cells.push_back(statement.aExact[static_cast<std::size_t>(i)] ? from_exact(value) : from_qt(value));
    }
  }
  const QSqlError error = statement.query.lastError();
  statement.query.finish();
  if (error.isValid()) engine.throw_error(error, statement.sSql);
  return cells;
}

bool only_reads(std::string_view sSql) { return arap::EqualsNoCase(sSql.substr(0, 6), "select"); }

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

Database::Database(const std::string& sAddress, Options options)
    : options_(options), engine_(Engine::of(sAddress)), path_(engine_->shown()) {}
Database::~Database() = default;

std::unique_ptr<Database> Database::create(const std::string& sAddress, Options options) {
  std::unique_ptr<Database> database(new Database(sAddress, options));
  Engine& engine = *database->engine_;
  engine.make_place();
  try {
    database->connect(true);
    create_schema(*database);
    engine.set_marks(*database, {kApplicationId, kSchemaVersion});
    return database;
  } catch (...) {
    database->connection_.reset();
    engine.remove_place();
    throw;
  }
}

std::unique_ptr<Database> Database::open(const std::string& sAddress, Options options) {
  std::unique_ptr<Database> database(new Database(sAddress, options));
  database->engine_->refuse_missing();
  database->connect(false);
  database->check_is_book();
  return database;
}

EngineKind Database::kind() const { return engine_->kind(); }

void Database::connect(bool bCreate) {
  connection_ = std::make_unique<Connection>(*engine_, options_);
  QSqlDatabase& database = connection_->named.database;
  if (!database.open()) engine_->throw_error(database.lastError(), path_);
  try {
    engine_->start(*this, bCreate);
  } catch (const DeskError& error) {
    throw DeskError(error.kind(), error.problem(), path_, error.hint());
  }
}

void Database::check_is_book() {
  Engine::Marks marks;
  try {
    marks = engine_->marks(*this);
  } catch (const DeskError& error) {
    throw DeskError(error.kind(), error.problem(), path_, error.hint());
  }
  if (marks.nApplication != kApplicationId)
    throw DeskError(ErrorKind::NotABook, "The file is not a book", path_, "Choose a file that the desk has made");
  if (marks.nVersion != kSchemaVersion) {
    throw DeskError(ErrorKind::WrongVersion,
                    "The book has version " + std::to_string(marks.nVersion) + ", this program reads version " +
                        std::to_string(kSchemaVersion),
                    path_, "Open it with the program that made it");
  }
}

/// Runs the work of one statement, again where another seat's lock stood in its way. Inside a transaction nothing is
/// waited for: the book is this seat's own there.
template <class Work>
auto Database::in_turn(std::string_view sSql, Work&& work) {
  if (viewing_ && !only_reads(sSql)) end_view();
  if (statement_hook_) statement_hook_(sSql);
  std::optional<Patience> patience;
  for (;;) {
    try {
      return work();
    } catch (const DeskError& error) {
      if (depth_ > 0 && engine_->failure_spoils_transaction()) spoiled_ = true;
      if (error.kind() != ErrorKind::Locked || depth_ > 0 || engine_->waits_by_itself()) throw;
      if (!patience) patience.emplace(options_.nBusyTimeoutMs);
      if (!patience->wait()) throw;
    }
  }
}

Rows Database::query(std::string_view sSql, const Binds& binds) {
  return in_turn(sSql, [&] {
    PreparedStatement& statement = connection_->statements->prepare(sSql);
    run(statement, binds, *engine_);
    std::vector<Value> cells = fetch(statement, *engine_);
    return Rows(statement.columns, std::move(cells));
  });
}

std::int64_t Database::exec(std::string_view sSql, const Binds& binds) {
  return in_turn(sSql, [&]() -> std::int64_t {
    PreparedStatement& statement = connection_->statements->prepare(sSql);
    run(statement, binds, *engine_);
    const int nChanged = statement.query.numRowsAffected();
    statement.query.finish();
    return nChanged;
  });
}

void Database::exec_script(std::string_view sScript) {
  for (const std::string& sStatement : split_script(sScript)) run_as_it_stands(engine_->spelled(sStatement));
  connection_->statements->clear();  // the tables that they were compiled for may have changed
}

void Database::run_as_it_stands(std::string_view sSql) {
  in_turn(sSql, [&] {
    QSqlQuery query(connection_->named.database);
    if (!query.exec(qt(sSql))) engine_->throw_error(query.lastError(), std::string(sSql));
  });
}

Value Database::value(std::string_view sSql, const Binds& binds, const Value& vDefault) {
  const Rows rows = query(sSql, binds);
  return rows.empty() ? vDefault : rows.at(0, std::size_t{0});
}

void Database::end_view() {
  if (!std::exchange(viewing_, false)) return;
  try {
    exec("COMMIT");
  } catch (const DeskError&) {
    // After an error of the disk the engine has already ended it by itself.
  }
}

std::size_t Database::cached_statements() const { return connection_->statements->size(); }

Transaction::Transaction(Database& database) : database_(database), level_(database.depth_) {
  if (level_ == 0) {
    database_.engine_->begin(database_);
  } else {
    database_.exec("SAVEPOINT level_" + std::to_string(level_));
  }
  ++database_.depth_;
}

void Transaction::commit() {
  if (!open_ || database_.depth_ != level_ + 1)
    throw DeskError(ErrorKind::Other, "A transaction is committed out of turn", database_.path());
  // The engine would take the end of a spoiled transaction for its way back.
  if (database_.spoiled_)
    throw DeskError(ErrorKind::Other, "A statement of the transaction failed; nothing was changed", database_.path());
  database_.exec(level_ == 0 ? "COMMIT" : "RELEASE level_" + std::to_string(level_));
  open_ = false;
  --database_.depth_;
}

Transaction::~Transaction() {
  if (!open_) return;
  database_.depth_ = level_;
  database_.spoiled_ = false;
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

ReadView::ReadView(Database& database) : database_(database) {
  if (database.depth_ > 0 || database.viewing_ || !database.engine_->locks_each_read()) return;
  database.exec("BEGIN");
  database.viewing_ = own_ = true;
}

ReadView::~ReadView() {
  if (own_) database_.end_view();
}

}  // namespace desk
