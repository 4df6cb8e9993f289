#include "bridge/errors.h"

#include <array>
#include <new>

#include "bridge/wide_text.h"

namespace arap::com {

namespace {

constexpr HRESULT kRuntimeErrors = static_cast<HRESULT>(0x800A0000);
constexpr std::int32_t kLargestRuntimeError = 0xFFFF;
/// An automation error that doesn't say which.
constexpr std::int32_t kUnspecified = 440;

struct KnownCode {
  HRESULT code;
  std::int32_t nNumber;
};
constexpr auto kKnownCodes = std::to_array<KnownCode>({
    {DISP_E_UNKNOWNNAME, 438},   {DISP_E_MEMBERNOTFOUND, 438},
    {DISP_E_TYPEMISMATCH, 13},   {DISP_E_BADVARTYPE, 458},
    {DISP_E_OVERFLOW, 6},        {DISP_E_DIVBYZERO, 11},
    {DISP_E_BADINDEX, 9},        {DISP_E_ARRAYISLOCKED, 10},
    {DISP_E_BADPARAMCOUNT, 450}, {DISP_E_PARAMNOTOPTIONAL, 449},
    {DISP_E_PARAMNOTFOUND, 448}, {DISP_E_NONAMEDARGS, 446},
    {DISP_E_UNKNOWNLCID, 447},   {E_NOTIMPL, 445},
    {E_NOINTERFACE, 430},        {E_OUTOFMEMORY, 7},
    {E_INVALIDARG, 5},           {E_ACCESSDENIED, 70},
    {REGDB_E_CLASSNOTREG, 429},  {CO_E_CLASSSTRING, 429},
    {CO_E_OBJNOTCONNECTED, 462}, {RPC_E_DISCONNECTED, 462},
    {RPC_E_SERVER_DIED, 462},    {static_cast<HRESULT>(0x800706BA), 462},  // the server isn't there
});

std::int32_t number_of(HRESULT code) {
  if ((code & static_cast<HRESULT>(0xFFFF0000)) == kRuntimeErrors) return code & kLargestRuntimeError;
  for (const KnownCode& known : kKnownCodes) {
    if (known.code == code) return known.nNumber;
  }
  return code;
}

/// The system's own text of a code; "" when it has none.
std::string system_text(HRESULT code) {
  std::array<wchar_t, 512> buffer;
  const DWORD nLength = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                       static_cast<DWORD>(code), 0, buffer.data(), buffer.size(), nullptr);
  std::wstring_view sText(buffer.data(), nLength);
  while (!sText.empty() && (sText.back() == L'\n' || sText.back() == L'\r')) sText.remove_suffix(1);
  return to_utf8(sText);
}

/// An error without texts of its own.
AutomationError plain_error(HRESULT code) {
  const std::int32_t nNumber = number_of(code);
  const AutomationError runtime(static_cast<ErrorNumber>(nNumber));
  std::string sText = nNumber > 0 ? runtime.description() : std::string();
  if (sText.empty()) sText = system_text(code);
  if (sText.empty()) sText = "Automation error";
  return AutomationError(nNumber, runtime.source(), sText);
}

void fill(EXCEPINFO& info, const AutomationError& error) {
  info = {};
  info.scode = code_of(error);
  info.bstrSource = to_bstr(error.source()).detach();
  info.bstrDescription = to_bstr(error.description()).detach();
}

/// Failure to build the error object leaves the code alone to speak.
void set_error_object(const AutomationError& error, REFIID id) {
  ComPtr<ICreateErrorInfo> creator;
  if (FAILED(CreateErrorInfo(creator.put()))) return;
  creator->SetGUID(id);
  creator->SetSource(to_bstr(error.source()).get());
  creator->SetDescription(to_bstr(error.description()).get());
  const ComPtr<IErrorInfo> info = query<IErrorInfo>(creator.get());
  if (info) SetErrorInfo(0, info.get());
}

/// For a `catch (...)`: the AutomationError under way; for another exception its code.
struct Failure {
  std::optional<AutomationError> error;
  HRESULT code = E_UNEXPECTED;
};
Failure current_failure() {
  Failure failure;
  try {
    throw;
  } catch (const AutomationError& error) {
    failure.error = error;
    failure.code = code_of(error);
  } catch (const std::bad_alloc&) {
    failure.code = E_OUTOFMEMORY;
  } catch (...) {
    failure.code = E_UNEXPECTED;
  }
  return failure;
}

}  // namespace

HRESULT code_of(const AutomationError& error) {
  const std::int32_t nNumber = error.number();
  return nNumber < 0 ? nNumber : kRuntimeErrors | (nNumber & kLargestRuntimeError);
}

AutomationError error_of(HRESULT code, EXCEPINFO* info) {
  if (code != DISP_E_EXCEPTION || info == nullptr) return plain_error(code);
  if (info->pfnDeferredFillIn != nullptr) info->pfnDeferredFillIn(info);
  const HRESULT inner =
      info->scode != 0 ? info->scode : kRuntimeErrors | (info->wCode != 0 ? info->wCode : kUnspecified);
  const AutomationError plain = plain_error(inner);
  std::string sSource = to_utf8(info->bstrSource);
  std::string sDescription = to_utf8(info->bstrDescription);
  if (sDescription.empty()) sDescription = plain.description();
  return AutomationError(info->wCode != 0 ? info->wCode : plain.number(), std::move(sSource), std::move(sDescription));
}

void check(HRESULT code) {
  if (FAILED(code)) throw error_of(code);
}

std::optional<AutomationError> error_left_by(HRESULT code) {
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.put()) != S_OK) return std::nullopt;
  Bstr sSource;
  Bstr sDescription;
  info->GetSource(sSource.put());
  info->GetDescription(sDescription.put());
  return AutomationError(number_of(code), to_utf8(sSource.get()), to_utf8(sDescription.get()));
}

HRESULT report_to_invoke(EXCEPINFO* info) noexcept {
  if (info == nullptr) return report_to_method(IID_IDispatch);
  try {
    const Failure failure = current_failure();
    if (!failure.error) return failure.code;
    fill(*info, *failure.error);
    return DISP_E_EXCEPTION;
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

HRESULT report_to_method(REFIID id) noexcept {
  try {
    const Failure failure = current_failure();
    if (failure.error) set_error_object(*failure.error, id);
    return failure.code;
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace arap::com
