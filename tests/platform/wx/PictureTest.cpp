#include "platform/wx/Picture.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <wx/bitmap.h>
#include <wx/image.h>

namespace quorvel::ui {
namespace {

/// How many of a picture's pixels are more opaque than a limit, in parts of the whole.
double ShareAbove(const wxImage& picture, int opacity) {
  const unsigned char* const first = picture.GetAlpha();
  const int pixels = picture.GetWidth() * picture.GetHeight();
  return static_cast<double>(std::count_if(first, first + pixels, [=](int each) { return each > opacity; })) / pixels;
}

TEST(Picture, EachIsASharpShapeOnTransparentGroundAtEverySize) {
  for (const char* name : {"quorvel", "users", "groups", "rights", "remarks", "contexts", "entities"}) {
    for (const int size : {32, 48, 64}) {
      SCOPED_TRACE(testing::Message() << name << " at " << size);
      const wxImage picture = Picture(name).GetBitmap(wxSize(size, size)).ConvertToImage();
      ASSERT_EQ(picture.GetSize(), wxSize(size, size));
      ASSERT_TRUE(picture.HasAlpha());
      EXPECT_GT(ShareAbove(picture, 254), 0.2);
      EXPECT_LT(ShareAbove(picture, 0), 0.95);
    }
  }
}

TEST(Picture, ColoursAreThoseOfTheDrawing) {
  const wxImage person = Picture("users").GetBitmap(wxSize(64, 64)).ConvertToImage();
  EXPECT_EQ(person.GetAlpha(0, 0), 0);
  const wxColour body(person.GetRed(32, 50), person.GetGreen(32, 50), person.GetBlue(32, 50), person.GetAlpha(32, 50));
  EXPECT_EQ(body, wxColour(0x35, 0x78, 0xd4));
}

TEST(Picture, AnUnknownNameGivesNone) { EXPECT_FALSE(Picture("Users").IsOk()); }

TEST(ProductIcons, HaveTheSizesThatTitleBarsAskFor) {
  const wxIconBundle icons = ProductIcons();
  for (const int size : {16, 20, 24, 32, 40, 48, 64, 128}) {
    EXPECT_EQ(icons.GetIcon(wxSize(size, size), wxIconBundle::FALLBACK_NONE).GetWidth(), size);
  }
}

}  // namespace
}  // namespace quorvel::ui
