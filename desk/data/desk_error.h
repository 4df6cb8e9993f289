#pragma once

#include <stdexcept>
#include <string>

namespace desk {

/// What a program can tell errors apart by; a person reads the texts. Whichever comes up to the command line ends it
/// with exit code 3.
enum class ErrorKind {
  MissingFile,
  NotABook,      // neither a file nor a database that the desk has made
  WrongVersion,  // a book of another version of the desk
  Locked,        // somebody else writes or holds it; the same may succeed later
  DiskFull,
  ReadOnly,
  Damaged,         // only a backup copy helps
  Constraint,      // the book refuses the change: a number that is there already, a type in use
  UnsupportedSql,  // a text of the original server's SQL that can't be carried over
  BadValue,        // in a file, an argument or the book's own data
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
