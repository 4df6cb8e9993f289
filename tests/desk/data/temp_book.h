#pragma once

#include <QTemporaryDir>
#include <fstream>
#include <memory>
#include <string>

#include "data/database.h"
#include "data/demo.h"
#include "desk/test_server.h"

namespace desk::testing {

/// A folder that goes away with the test.
class TempFolder {
 public:
  std::string path(const std::string& sName) const {
    return folder_.filePath(QString::fromStdString(sName)).toStdString();
  }
  /// Where a book of that name lies: here, or on the server of this run.
  std::string book(const std::string& sName) const { return book_address(path(sName)); }
  std::string write(const std::string& sName, const std::string& sContent) const {
    const std::string sPath = path(sName);
    std::ofstream(sPath, std::ios::binary) << sContent;
    return sPath;
  }

 private:
  QTemporaryDir folder_;
};

struct TempBook {
  TempFolder folder;
  std::unique_ptr<Database> database = Database::create(folder.book("book.db"));
};

struct DemoBook : TempBook {
  DemoBook() { create_demo(*database); }
};

template <class F>
ErrorKind kind_of_failure(F&& action) {
  try {
    action();
  } catch (const DeskError& error) {
    return error.kind();
  }
  throw std::logic_error("the action did not fail");
}

}  // namespace desk::testing
