#include "platform/wx/Picture.h"

#include <cstddef>

#include <wx/bitmap.h>
#include <wx/icon.h>
#include <wx/image.h>

#include "pictures/DrawnPicture.h"

namespace quorvel::ui {
namespace {

constexpr std::string_view kProduct = "quorvel";

wxBitmap ToBitmap(const DrawnPicture& picture) {
  wxImage image(picture.size, picture.size, false);
  image.SetAlpha();
  unsigned char* colour = image.GetData();
  unsigned char* opacity = image.GetAlpha();
  for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
    unsigned char*& target = i % 4 == 3 ? opacity : colour;
    *target++ = static_cast<unsigned char>(picture.pixels[i]);
  }
  return {image};
}

wxVector<wxBitmap> SizesOf(std::string_view name) {
  wxVector<wxBitmap> sizes;
  for (const DrawnPicture& picture : DrawnPictures()) {
    if (picture.name == name) sizes.push_back(ToBitmap(picture));
  }
  return sizes;
}

}  // namespace

wxBitmapBundle Picture(std::string_view name) { return wxBitmapBundle::FromBitmaps(SizesOf(name)); }

wxIconBundle ProductIcons() {
  wxIconBundle icons;
  for (const wxBitmap& size : SizesOf(kProduct)) {
    wxIcon icon;
    icon.CopyFromBitmap(size);
    icons.AddIcon(icon);
  }
  return icons;
}

}  // namespace quorvel::ui
