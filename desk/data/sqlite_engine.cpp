#include <QFile>
#include <QFileInfo>

#include "data/engine.h"

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

/// One file is one book.
class SqliteEngine final : public Engine {
 public:
  explicit SqliteEngine(const std::string& sPath) : path_(sPath) {}

  EngineKind kind() const override { return EngineKind::File; }
  std::string shown() const override { return path_; }
  QString driver() const override { return QStringLiteral("QSQLITE"); }
  void address(QSqlDatabase& database) const override {
    database.setDatabaseName(QString::fromStdString(path_));
    // The engine's own waiting grows longer with each try, so that late comers overtake: see Patience.
    database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=0"));
  }

  void make_place() override {
    QFile file(QString::fromStdString(path_));
    if (file.exists())
      throw DeskError(ErrorKind::Other, "There is a file of that name already", path_, "Choose another name");
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
      throw DeskError(ErrorKind::MissingFile, "The book can't be made", path_,
                      "Check that the folder exists and can be written");
    }
  }
  void remove_place() override { QFile::remove(QString::fromStdString(path_)); }
  void refuse_missing() const override {
    if (!QFileInfo(QString::fromStdString(path_)).isFile())
      throw DeskError(ErrorKind::MissingFile, "There is no such book", path_, "Check the name, or make a new book");
  }

  void start(Database& database, bool bCreate) const override {
    if (bCreate) database.query("PRAGMA journal_mode = WAL");
    database.query("PRAGMA synchronous = FULL");
    database.query("PRAGMA foreign_keys = ON");
  }
  Marks marks(Database& database) const override {
    return {database.query("PRAGMA application_id").integer(0, "application_id"),
            database.query("PRAGMA user_version").integer(0, "user_version")};
  }
  void set_marks(Database& database, Marks marks) const override {
    database.query("PRAGMA application_id = " + std::to_string(marks.nApplication));
    database.query("PRAGMA user_version = " + std::to_string(marks.nVersion));
  }

  std::string spelled(std::string_view sSql) const override { return std::string(sSql); }
  std::string column_name(const std::string& sName) const override { return sName; }
  bool can_prepare(std::string_view) const override { return true; }
  void begin(Database& database) const override { database.exec("BEGIN IMMEDIATE"); }
  bool failure_spoils_transaction() const override { return false; }
  bool waits_by_itself() const override { return false; }
  bool locks_each_read() const override { return true; }

  [[noreturn]] void throw_error(const QSqlError& error, const std::string& sWhere) const override {
    const std::string sEngine = error.databaseText().toStdString();
    switch (error.nativeErrorCode().toInt() & 0xff) {
      case kBusy:
      case kLocked:
        throw DeskError(ErrorKind::Locked, "The book is locked by another program", sWhere,
                        "Wait until the other one has finished, then try again");
      case kFull:
        throw DeskError(ErrorKind::DiskFull, "The disk is full; nothing was changed", sWhere,
                        "Make room and try again");
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

 private:
  std::string path_;
};

}  // namespace

std::unique_ptr<Engine> make_sqlite_engine(const std::string& sPath) { return std::make_unique<SqliteEngine>(sPath); }

}  // namespace desk
