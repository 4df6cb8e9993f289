#include "data/desk_error.h"

#include <utility>

#include "frame/automation.h"

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

void pass_through_door(const DeskError& error, std::string sSource) {
  constexpr std::int32_t kUnspecified = -2147467259;  // of the data objects
  throw arap::AutomationError(kUnspecified, std::move(sSource), error.what());
}

}  // namespace desk
