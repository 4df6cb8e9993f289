#pragma once

#include <stdexcept>
#include <string>

namespace desk {

enum class ErrorKind {
  MissingFile,
  NotABook,
  WrongVersion,
  Locked,
  DiskFull,
  ReadOnly,
  Damaged,
  Constraint,
  UnsupportedSql,
  BadValue,
  Other,
};

/// A failure of the desk itself, told so that a person can act on it.
class DeskError : public std::runtime_error {
 public:
  /// `sWhat` says what went wrong, `sWhere` the file, line or statement, `sHint` what to do about it.
  DeskError(ErrorKind kind, std::string sWhat, std::string sWhere, std::string sHint = {});

  ErrorKind kind() const noexcept { return kind_; }
  const std::string& problem() const noexcept { return what_; }
  const std::string& where() const noexcept { return where_; }
  const std::string& hint() const noexcept { return hint_; }

 private:
  ErrorKind kind_;
  std::string what_;
  std::string where_;
  std::string hint_;
};

/// As the door knows errors: the failure becomes an automation error of that source with the whole text.
[[noreturn]] void pass_through_door(const DeskError& error, std::string sSource);

}  // namespace desk
