#include "server/pictures.h"

#include <cstring>

#include "bridge/bridge.h"
#include "bridge/errors.h"
#include "bridge/wide_text.h"
#include "server/module.h"

namespace arap::com {

namespace {

/// The bitmap of that name among the resources; nullptr when there is none. It is read without a device, so that no
/// screen has a say in its colours. The pictures have 24 bits a point and no palette.
HBITMAP load_bitmap(const std::wstring& sName) {
  const HMODULE module = own_module();
  const HRSRC resource = FindResourceW(module, sName.c_str(), RT_BITMAP);
  if (resource == nullptr) return nullptr;
  const auto* const info = static_cast<const BITMAPINFO*>(LockResource(LoadResource(module, resource)));
  const std::size_t nHeader = info->bmiHeader.biSize;
  void* points = nullptr;
  const HBITMAP bitmap = CreateDIBSection(nullptr, info, DIB_RGB_COLORS, &points, nullptr, 0);
  if (bitmap == nullptr) return nullptr;
  std::memcpy(points, reinterpret_cast<const char*>(info) + nHeader, SizeofResource(module, resource) - nHeader);
  return bitmap;
}

}  // namespace

Variant load_picture(std::string_view sName) {
  const HBITMAP bitmap = load_bitmap(to_wide(sName));
  if (bitmap == nullptr) return {};
  PICTDESC description{};
  description.cbSizeofstruct = sizeof(description);
  description.picType = PICTYPE_BITMAP;
  description.bmp.hbitmap = bitmap;
  ComPtr<IDispatch> picture;
  const HRESULT made = OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE, picture.put_void());
  if (FAILED(made)) DeleteObject(bitmap);
  check(made);
  return Variant(object_of(picture.get()));
}

}  // namespace arap::com
