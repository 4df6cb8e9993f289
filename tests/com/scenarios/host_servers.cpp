#include "com/scenarios/host_servers.h"

#include <array>
#include <string>
#include <string_view>

#include "bridge/bridge.h"
#include "bridge/errors.h"
#include "bridge/wide_text.h"
#include "frame/open_choices.h"
#include "frame/platform.h"

namespace arap::testing {

namespace {

constexpr std::array kProgIds{
    open_choices::kObjectFactory,
    open_choices::kDictionary,
    open_choices::kVector,
    open_choices::kTool,
    open_choices::kAdoConnection,
    std::string_view("NUVPropsMgr.ShareProps"),
    std::string_view("NUVLPCGLView.GLData"),
    std::string_view("NUVConnection.AppConnection"),
    std::string_view("NUVBills.Bills"),
    std::string_view("NUVBOMMImpAndExp.cImpAndExp"),
    std::string_view("NUVMYWARAPRpt.Data"),
    std::string_view("NUVBills.clsCredit"),
    std::string_view("NUVMVEdit.MVoucherEdit"),
    std::string_view("NUVCHMResTool.ClsCHMHelp"),
    std::string_view("NUVFrmRes.FrmResLoader"),
    std::string_view("NUVDisplayer.DispBuilder"),
};

/// The class id that the n-th ProgID gets where the machine has none.
CLSID own_id(std::size_t nProgId) {
  CLSID id = {0x3a0e22f0, 0x7b5c, 0x4c1e, {0x9c, 0x1b, 0x5e, 0x1d, 0x7a, 0x6f, 0x00, 0x00}};
  id.Data4[7] = static_cast<unsigned char>(nProgId);
  return id;
}

void enter(const std::wstring& sProgId, const CLSID& id) {
  wchar_t sId[40] = {};
  StringFromGUID2(id, sId, 40);
  RegSetKeyValueW(HKEY_CLASSES_ROOT, (sProgId + L"\\CLSID").c_str(), nullptr, REG_SZ, sId,
                  static_cast<DWORD>((std::wstring_view(sId).size() + 1) * sizeof(wchar_t)));
}

CLSID class_id(std::size_t nProgId) {
  const std::wstring sProgId = com::to_wide(kProgIds[nProgId]);
  CLSID id;
  if (SUCCEEDED(CLSIDFromProgID(sProgId.c_str(), &id))) return id;
  enter(sProgId, own_id(nProgId));
  return own_id(nProgId);
}

}  // namespace

/// The class object of one ProgID; it lives as long as its HostServers, whatever its count.
class HostClass final : public IClassFactory {
 public:
  HostClass(std::string_view sProgId, const CLSID& id) : prog_id_(sProgId) {
    com::check(CoRegisterClassObject(id, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_));
  }
  ~HostClass() { CoRevokeClassObject(cookie_); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
    const bool bKnown = id == IID_IUnknown || id == IID_IClassFactory;
    *out = bKnown ? this : nullptr;
    return bKnown ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** out) override {
    *out = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    try {
      return com::dispatch_of(CurrentPlatform().CreateObject(prog_id_))->QueryInterface(id, out);
    } catch (...) {
      return com::report_to_method(IID_IClassFactory);
    }
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  std::string_view prog_id_;
  DWORD cookie_ = 0;
};

HostServers::HostServers() {
  for (std::size_t i = 0; i < kProgIds.size(); ++i) {
    classes_.push_back(std::make_unique<HostClass>(kProgIds[i], class_id(i)));
  }
}

HostServers::~HostServers() = default;

}  // namespace arap::testing
