#include "data/database.h"

#include <gtest/gtest.h>

#include "temp_book.h"

namespace desk {
namespace {

using testing::kind_of_failure;
using testing::TempBook;
using testing::TempFolder;

TEST(DatabaseTest, ABookThatWasMadeCanBeOpenedAgainWithItsRows) {
  TempFolder folder;
  create_masters(*Database::create(folder.book("a.db")));
  EXPECT_EQ(
      Database::open(folder.book("a.db"))->query("SELECT FName FROM t_Currency WHERE FCurrencyID = 1").text(0, "fname"),
      "人民币");
}

TEST(DatabaseTest, OpeningWhatIsNoBookSaysWhy) {
  DESK_FILES_ONLY();
  TempFolder folder;
  EXPECT_EQ(kind_of_failure([&] { Database::open(folder.path("none.db")); }), ErrorKind::MissingFile);
  const std::string sText = folder.write("text.db", std::string(5000, 'x'));
  EXPECT_EQ(kind_of_failure([&] { Database::open(sText); }), ErrorKind::NotABook);
  const std::string sEmpty = folder.write("empty.db", "");
  EXPECT_EQ(kind_of_failure([&] { Database::open(sEmpty); }), ErrorKind::NotABook);
  Database::create(folder.path("new.db"))->query("PRAGMA user_version = 99");
  EXPECT_EQ(kind_of_failure([&] { Database::open(folder.path("new.db")); }), ErrorKind::WrongVersion);
}

TEST(DatabaseTest, AnExistingFileIsNeverOverwritten) {
  DESK_FILES_ONLY();
  TempFolder folder;
  const std::string sPath = folder.write("mine.txt", "mine");
  EXPECT_THROW(Database::create(sPath), DeskError);
  std::ifstream file(sPath);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "mine");
  EXPECT_EQ(kind_of_failure([&] { Database::create(folder.path("no/such/folder.db")); }), ErrorKind::MissingFile);
}

TEST(DatabaseTest, ATransactionWithoutCommitLeavesNothingBehind) {
  TempBook book;
  {
    Transaction transaction(*book.database);
    book.database->exec("INSERT INTO t_Settle VALUES (1, '01', 'x')");
  }
  EXPECT_TRUE(book.database->query("SELECT * FROM t_Settle").empty());
  EXPECT_FALSE(book.database->in_transaction());
}

TEST(DatabaseTest, AnInnerTransactionCanFailAlone) {
  TempBook book;
  Transaction outer(*book.database);
  book.database->exec("INSERT INTO t_Settle VALUES (1, '01', 'kept')");
  {
    Transaction inner(*book.database);
    book.database->exec("INSERT INTO t_Settle VALUES (2, '02', 'dropped')");
  }
  outer.commit();
  const Rows rows = book.database->query("SELECT FName FROM t_Settle");
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows.text(0, "FName"), "kept");
}

TEST(DatabaseTest, ASecondWriterHearsThatTheBookIsLocked) {
  TempBook book;
  const auto second = Database::open(book.folder.book("book.db"), {.nBusyTimeoutMs = 20, .nCachedStatements = 8});
  Transaction transaction(*book.database);
  EXPECT_EQ(kind_of_failure([&] { Transaction other(*second); }), ErrorKind::Locked);
  EXPECT_FALSE(second->in_transaction());
  transaction.commit();
  EXPECT_NO_THROW(Transaction(*second).commit());
}

TEST(DatabaseTest, AStatementTakesAnyNumberOfParameters) {
  TempBook book;
  for (const std::int32_t nCount : {1, 1000, 1001, 5000}) {
    std::string sSql = "SELECT COUNT(*) AS n FROM t_Settle WHERE FItemID IN (";
    Binds binds;
    for (std::int32_t n = 0; n < nCount; ++n) {
      sSql += n == 0 ? "?" : ", ?";
      binds.emplace_back(n);
    }
    book.database->exec("DELETE FROM t_Settle");
    book.database->exec("INSERT INTO t_Settle VALUES (?, '01', 'x')", {nCount - 1});
    EXPECT_EQ(book.database->query(sSql + ")", binds).integer(0, "n"), 1) << nCount;
  }
}

TEST(DatabaseTest, AViewSeesOneStateOfTheBook) {
  DESK_FILES_ONLY();
  TempBook book;
  const auto second = Database::open(book.folder.book("book.db"));
  const auto count = [&] { return book.database->query("SELECT * FROM t_Settle").size(); };
  {
    const ReadView view(*book.database);
    EXPECT_EQ(count(), 0u);
    second->exec("INSERT INTO t_Settle VALUES (1, '01', 'x')");
    EXPECT_EQ(count(), 0u) << "the view began before";
    EXPECT_FALSE(book.database->in_transaction());
  }
  EXPECT_EQ(count(), 1u);
}

TEST(DatabaseTest, AViewEndsBeforeItsSeatWrites) {
  TempBook book;
  const auto second = Database::open(book.folder.book("book.db"), {.nBusyTimeoutMs = 20, .nCachedStatements = 8});
  const ReadView view(*book.database);
  const ReadView inner(*book.database);
  book.database->query("SELECT * FROM t_Settle");
  second->exec("INSERT INTO t_Settle VALUES (1, '01', 'x')");
  book.database->exec("INSERT INTO t_Settle VALUES (2, '02', 'y')");
  EXPECT_EQ(second->query("SELECT * FROM t_Settle").size(), 2u) << "the write stands at once";
  EXPECT_NO_THROW(Transaction(*second).commit()) << "and keeps nobody out";
}

TEST(DatabaseTest, AViewInsideATransactionLeavesItAlone) {
  TempBook book;
  Transaction transaction(*book.database);
  { const ReadView view(*book.database); }
  book.database->exec("INSERT INTO t_Settle VALUES (1, '01', 'x')");
  transaction.commit();
  EXPECT_EQ(book.database->query("SELECT * FROM t_Settle").size(), 1u);
}

TEST(DatabaseTest, AFullDiskIsToldAndNothingIsChanged) {
  DESK_FILES_ONLY();
  TempBook book;
  const auto nPages = book.database->query("PRAGMA page_count").integer(0, "page_count");
  book.database->query("PRAGMA max_page_count = " + std::to_string(nPages));
  const auto fill = [&] {
    Transaction transaction(*book.database);
    book.database->exec("INSERT INTO t_Settle VALUES (1, '01', 'small')");
    book.database->exec("INSERT INTO t_Settle VALUES (2, '02', ?)", {std::string(200'000, 'x')});
    transaction.commit();
  };
  EXPECT_EQ(kind_of_failure(fill), ErrorKind::DiskFull);
  EXPECT_TRUE(book.database->query("SELECT * FROM t_Settle").empty());
  EXPECT_FALSE(book.database->in_transaction());
}

TEST(DatabaseTest, ABrokenRuleOfTheTablesIsAConstraintError) {
  TempBook book;
  book.database->exec("INSERT INTO t_Settle VALUES (1, '01', 'x')");
  EXPECT_EQ(kind_of_failure([&] { book.database->exec("INSERT INTO t_Settle VALUES (2, '01', 'y')"); }),
            ErrorKind::Constraint);
  EXPECT_EQ(
      kind_of_failure([&] { book.database->exec("INSERT INTO t_RP_RBillEntry (FBillID, FIndex) VALUES (9, 1)"); }),
      ErrorKind::Constraint)
      << "an entry needs its bill";
}

TEST(DatabaseTest, EveryKindOfValueComesBackAsItWasStored) {
  TempBook book;
  const std::string_view sSql =
      "SELECT CAST(? AS BIGINT) AS a, CAST(? AS DOUBLE PRECISION) AS b, CAST(? AS TEXT) AS c, CAST(? AS TEXT) AS d, "
      "CAST(? AS BIGINT) AS e";
  const Rows rows = book.database->query(sSql, {7, 0.1, "客户'; --", Value(), Money{9223372036854775807}});
  EXPECT_EQ(rows.at(0, "a").as<std::int32_t>(), 7);
  EXPECT_EQ(rows.at(0, "B").as<double>(), 0.1);
  EXPECT_EQ(rows.text(0, "c"), "客户'; --");
  EXPECT_TRUE(rows.at(0, "d").is_null());
  EXPECT_EQ(rows.money(0, "e").units, 9223372036854775807) << "beyond what a double can hold";
  EXPECT_THROW(rows.at(0, "nothing"), DeskError);
  EXPECT_THROW(rows.at(1, "a"), DeskError);
}

TEST(DatabaseTest, AQuestionMarkInALiteralIsNoParameterAndAMissingValueIsAnError) {
  TempBook book;
  const Rows rows = book.database->query("SELECT 'who? it''s ?' AS a, ? AS b, '?' AS c, ? AS d", {1, "x:p0?"});
  EXPECT_EQ(rows.text(0, "a"), "who? it's ?");
  EXPECT_EQ(rows.integer(0, "b"), 1);
  EXPECT_EQ(rows.text(0, "d"), "x:p0?");
  EXPECT_THROW(book.database->query("SELECT ? AS a, ? AS b", {1}), DeskError);
  EXPECT_THROW(book.database->query("SELECT ? AS a", {1, 2}), DeskError);
}

TEST(DatabaseTest, TheLeastRecentlyUsedStatementLeavesTheCache) {
  TempFolder folder;
  const auto database = Database::create(folder.book("a.db"), {.nBusyTimeoutMs = 100, .nCachedStatements = 3});
  for (int i = 0; i < 20; ++i) EXPECT_EQ(database->query("SELECT " + std::to_string(i) + " AS n").integer(0, "n"), i);
  EXPECT_EQ(database->cached_statements(), 3u);
}

TEST(DatabaseTest, ABookIsDurableAndKeepsItsReferences) {
  DESK_FILES_ONLY();
  TempBook book;
  EXPECT_EQ(book.database->query("PRAGMA journal_mode").text(0, "journal_mode"), "wal");
  EXPECT_EQ(book.database->query("PRAGMA synchronous").integer(0, "synchronous"), 2);
  EXPECT_EQ(book.database->query("PRAGMA foreign_keys").integer(0, "foreign_keys"), 1);
}

}  // namespace
}  // namespace desk
