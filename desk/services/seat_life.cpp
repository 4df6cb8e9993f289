#include "services/seat_life.h"

#include <QDir>
#include <QFile>

namespace desk {

namespace {

// The class of the advisory locks that seats hold on a server.
constexpr const char* kSeatLocks = "1145393987";

std::string content_of(const QString& sPath) {
  QFile file(sPath);
  return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

/// When a process started, with the mark of the machine's own start: "9a3bc1d2:123456".
std::string process_start(std::int32_t nProcess) {
  // Behind the name in parentheses, which may hold anything, the start is the twentieth field.
  const std::string sStat = content_of(QStringLiteral("/proc/%1/stat").arg(nProcess));
  const std::size_t nName = sStat.rfind(')');
  if (nName == std::string::npos) return {};
  std::size_t nField = nName + 1;
  for (int n = 0; n < 19; ++n) nField = sStat.find(' ', nField + 1);
  static const std::string sBoot = content_of(QStringLiteral("/proc/sys/kernel/random/boot_id")).substr(0, 8);
  return sBoot + ":" + sStat.substr(nField + 1, sStat.find(' ', nField + 1) - nField - 1);
}

/// Takes the lock of this connection, once.
std::string connection_life(Database& database) {
  const Rows held = database.query(
      std::string("SELECT objid AS n FROM pg_locks WHERE locktype = 'advisory' AND pid = pg_backend_pid()"
                  " AND objsubid = 2 AND classid = ") +
      kSeatLocks);
  if (!held.empty()) return held.text(0, "n");
  const std::string sSeat = database.query("SELECT nextval('s_Seat') AS n").text(0, "n");
  database.query(std::string("SELECT pg_advisory_lock(") + kSeatLocks + ", " + sSeat + ")");
  return sSeat;
}

void clear_ended_programs(Database& database, const std::string& sMachine) {
  // Only where the system lists its processes can the answer be that one has ended.
  static const bool bListed = QDir(QStringLiteral("/proc/self")).exists();
  if (!bListed) return;
  const Rows rows = database.query("SELECT DISTINCT FProcess, FSeat FROM t_Task WHERE FMachine = ?", {Bind(sMachine)});
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::int32_t nProcess = rows.integer(i, "FProcess");
    const std::string sSeat = rows.text(i, "FSeat");
    if (!sSeat.empty() && sSeat == process_start(nProcess)) continue;
    database.exec("DELETE FROM t_Task WHERE FMachine = ? AND FProcess = ? AND FSeat = ?",
                  {Bind(sMachine), Bind(nProcess), Bind(sSeat)});
  }
}

void clear_ended_connections(Database& database) {
  database.exec(std::string("DELETE FROM t_Task WHERE FSeat NOT IN (SELECT CAST(objid AS TEXT) FROM pg_locks WHERE"
                            " locktype = 'advisory' AND granted AND objsubid = 2 AND database ="
                            " (SELECT oid FROM pg_database WHERE datname = current_database()) AND classid = ") +
                kSeatLocks + ")");
}

}  // namespace

std::string seat_life(Database& database, std::int32_t nProcess) {
  switch (database.kind()) {
    case EngineKind::File: return process_start(nProcess);
    case EngineKind::Server: return connection_life(database);
  }
  return {};
}

void clear_ended_seats(Database& database, const std::string& sMachine) {
  switch (database.kind()) {
    case EngineKind::File: return clear_ended_programs(database, sMachine);
    case EngineKind::Server: return clear_ended_connections(database);
  }
}

}  // namespace desk
