#pragma once

#include <QTemporaryDir>
#include <fstream>
#include <memory>
#include <string>

#include "data/database.h"
#include "data/demo.h"

namespace desk::testing {

/// A folder that goes away with the test.
class TempFolder {
 public:
  std::string path(const std::string& sName) const {
    return folder_.filePath(QString::fromStdString(sName)).toStdString();
  }
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
  std::unique_ptr<Database> database = Database::create(folder.path("book.db"));
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
