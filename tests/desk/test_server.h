#pragma once

#include <gtest/gtest.h>

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QUrl>
#include <cstdlib>
#include <map>
#include <string>

namespace desk::testing {

/// The books of the tests lie in files, or on the server that DESK_TEST_SERVER names (postgresql://user@host:port), so
/// that the same tests run on both engines.
inline std::string server() {
  const char* const sServer = std::getenv("DESK_TEST_SERVER");
  return sServer == nullptr ? std::string() : sServer;
}
inline bool on_server() { return !server().empty(); }

/// The databases of the running test, by the file that each stands for.
inline std::map<std::string, std::string>& server_books() {
  static std::map<std::string, std::string> names;
  return names;
}

/// Where the book of that file name lies in this run: there, or in a database of its own for as long as the test runs.
inline std::string book_address(const std::string& sFile) {
  if (!on_server()) return sFile;
  const std::string sNext = "book_" + std::to_string(server_books().size() + 1);
  return server() + "/" + server_books().emplace(sFile, sNext).first->second;
}

/// Each test leaves its databases empty; making them anew would take the server far longer.
inline void empty_server_books() {
  for (const auto& [sFile, sName] : server_books()) {
    const QString sConnection = QStringLiteral("empty-books");
    {
      QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), sConnection);
      const QUrl url(QString::fromStdString(server()));
      database.setHostName(url.host());
      database.setPort(url.port());
      database.setUserName(url.userName());
      database.setDatabaseName(QString::fromStdString(sName));
      if (database.open()) {
        QSqlQuery query(database);
        for (const char* sSql : {"SET client_min_messages = error",
                                 "SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity WHERE datname ="
                                 " current_database() AND pid <> pg_backend_pid()",
                                 "DROP SCHEMA public CASCADE", "CREATE SCHEMA public"})
          query.exec(QString::fromLatin1(sSql));
      }
    }
    QSqlDatabase::removeDatabase(sConnection);
  }
  server_books().clear();
}

}  // namespace desk::testing

/// For a test about the file itself.
#define DESK_FILES_ONLY() \
  if (desk::testing::on_server()) GTEST_SKIP() << "this is about the file of a book"
