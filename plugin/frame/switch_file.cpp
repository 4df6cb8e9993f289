#include "frame/switch_file.h"

#include "frame/conversions.h"
#include "frame/failure.h"
#include "frame/open_choices.h"
#include "frame/platform.h"
#include "frame/server_objects.h"

namespace arap {

namespace {

constexpr int kReadOnly = 1;
constexpr int kArchive = 32;

/// The switch file of this installation; "" when there is none.
std::string FindSwitchFile() {
  std::string sFolder = CurrentPlatform().ApplicationPath();
  if (!sFolder.ends_with('\\')) sFolder += '\\';
  // The repeated tries of the same file are required.
  for (const char* sFile : {"ErpSwitch.sss", "ErpSwitch.sss", "erpSystem\\ErpSwitch.sss", "ErpSwitch.sss"}) {
    std::string sPath = sFolder + sFile;
    if (CurrentPlatform().FileExists(sPath)) return sPath;
  }
  return {};
}

/// Jet opens no read-only file.
void MakeWritable(const std::string& sPath) {
  ResumeNext([&] {
    if ((CurrentPlatform().FileAttributes(sPath) & kReadOnly) != 0) {
      CurrentPlatform().SetFileAttributes(sPath, kArchive);
    }
  });
}

bool Open(const Ref<Object>& oConnection, std::string_view sProvider, const std::string& sPath) {
  bool bOpen = false;
  ResumeNext([&] {
    const std::string sSource = "PROVIDER=" + std::string(sProvider) + ";Data Source=" + sPath + ";";
    oConnection->call(Member::Open, sSource, ""_key, ""_key);
    bOpen = true;
  });
  return bOpen;
}

/// Opens the file with the older provider, or else with the newer one.
bool OpenWithJet(const Ref<Object>& oConnection, const std::string& sPath) {
  if (Open(oConnection, "Microsoft.Jet.OLEDB.3.51", sPath)) return true;
  ResumeNext([&] { oConnection->call(Member::Close); });
  return Open(oConnection, "Microsoft.Jet.OLEDB.4.0", sPath);
}

}  // namespace

std::string GetSwitchFileConnection(const Variant& vFile) {
  const std::string sPath = vFile.is_missing() ? FindSwitchFile() : TextOf(vFile);
  if (sPath.empty()) return {};
  MakeWritable(sPath);

  Ref<Object> oConnection;
  ResumeNext([&] { oConnection = CreateLocalObject(open_choices::kAdoConnection); });
  if (!oConnection || !OpenWithJet(oConnection, sPath)) {
    ShowMessage(LoadText("由于你的ODBC有误，系统不能与文件:'") + sPath + LoadText("'建立连接。"), kWarning, kTitle);
    return {};
  }
  std::string sConnection;
  ResumeNext([&] { sConnection = TextOf(oConnection->get(Member::ConnectionString)); });
  return sConnection;
}

}  // namespace arap
