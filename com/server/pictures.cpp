#include "server/pictures.h"

#include "bridge/bridge.h"
#include "bridge/errors.h"
#include "bridge/wide_text.h"
#include "server/module.h"

namespace arap::com {

Variant load_picture(std::string_view sName) {
  const std::wstring sResource = to_wide(sName);
  if (sResource.empty()) return {};
  const HANDLE image = LoadImageW(own_module(), sResource.c_str(), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
  if (image == nullptr) return {};
  PICTDESC description{};
  description.cbSizeofstruct = sizeof(description);
  description.picType = PICTYPE_BITMAP;
  description.bmp.hbitmap = static_cast<HBITMAP>(image);
  ComPtr<IDispatch> picture;
  const HRESULT made = OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE, picture.put_void());
  if (FAILED(made)) DeleteObject(image);
  check(made);
  return Variant(object_of(picture.get()));
}

}  // namespace arap::com
