#include "data/desk_error.h"

#include <utility>

namespace desk {
namespace {

std::string whole_text(const std::string& sWhat, const std::string& sWhere, const std::string& sHint) {
  std::string sText = sWhat;
  if (!sWhere.empty()) sText += " (" + sWhere + ")";
  if (!sHint.empty()) sText += ". " + sHint;
  return sText;
}

}  // namespace

DeskError::DeskError(ErrorKind kind, std::string sWhat, std::string sWhere, std::string sHint)
    : std::runtime_error(whole_text(sWhat, sWhere, sHint)),
      kind_(kind),
      what_(std::move(sWhat)),
      where_(std::move(sWhere)),
      hint_(std::move(sHint)) {}

}  // namespace desk
