#include "support/test_platform.h"

#include <algorithm>

#include "support/containers.h"

namespace arap::testing {

namespace {

constexpr int kYes = 6;
constexpr int kOk = 1;
constexpr int kButtonMask = 15;
constexpr int kYesNo = 4;
constexpr std::int32_t kFileNotFound = 53;

}  // namespace

void TestPlatform::add_object(std::string_view sProgID, Factory factory, bool bQuiet) {
  remove_object(sProgID);
  makers_.push_back({std::string(sProgID), std::move(factory), bQuiet});
}

void TestPlatform::remove_object(std::string_view sProgID) {
  std::erase_if(makers_, [&](const Maker& maker) { return same_name(maker.sProgID, sProgID); });
}

int TestPlatform::MsgBox(std::string_view sText, int nButtons, std::string_view sTitle) {
  messages.push_back({std::string(sText), nButtons, std::string(sTitle)});
  int nAnswer = (nButtons & kButtonMask) == kYesNo ? kYes : kOk;
  if (!answers_.empty()) {
    nAnswer = answers_.front();
    answers_.pop_front();
  }
  if (trace().records(false)) {
    trace().add("MsgBox(" + show(Variant(sText)) + ", " + std::to_string(nButtons) + ", " + show(Variant(sTitle)) +
                ") -> " + std::to_string(nAnswer));
  }
  if (while_open) while_open(messages.back());
  return nAnswer;
}

void TestPlatform::SetMousePointer(int nPointer) {
  pointers.push_back(nPointer);
  if (trace().records(false)) trace().add("MousePointer = " + std::to_string(nPointer));
}

Ref<Object> TestPlatform::CreateObject(std::string_view sProgID) {
  const auto found = std::find_if(makers_.begin(), makers_.end(),
                                  [&](const Maker& maker) { return same_name(maker.sProgID, sProgID); });
  const bool bRead = found != makers_.end() && found->bQuiet;
  if (trace().records(bRead)) trace().add("CreateObject(" + show(Variant(sProgID)) + ")");
  trace().count_call();
  if (found == makers_.end()) throw AutomationError(ErrorNumber::CannotCreateObject, sProgID);
  return found->factory();
}

void TestPlatform::StartHelpViewer(std::string_view sPath) {
  help_files.emplace_back(sPath);
  if (trace().records(false)) trace().add("StartHelpViewer(" + show(Variant(sPath)) + ")");
  trace().count_call();
}

int TestPlatform::FileAttributes(std::string_view sPath) {
  const auto found = files.find(sPath);
  if (found == files.end()) throw AutomationError(kFileNotFound, "Platform", "File not found");
  return found->second;
}

void TestPlatform::SetFileAttributes(std::string_view sPath, int nAttributes) {
  FileAttributes(sPath);
  files[std::string(sPath)] = nAttributes;
  if (trace().records(false)) {
    trace().add("SetAttr(" + show(Variant(sPath)) + ", " + std::to_string(nAttributes) + ")");
  }
}

Variant TestPlatform::Picture(std::string_view sName) {
  const auto found = pictures.find(sName);
  return found == pictures.end() ? Variant(sName) : found->second;
}

void TestPlatform::ShowGridForm(GridForm& form) {
  if (!use_grid_form) return Platform::ShowGridForm(form);
  auto oGrid = make_object<TestGrid>();
  form.Form_Load(oGrid);
  use_grid_form(*oGrid, form);
}

}  // namespace arap::testing
