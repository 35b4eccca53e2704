#include "platform/wx/Twips.h"

#include <gtest/gtest.h>

#include <wx/gdicmn.h>
#include <wx/window.h>

#include "platform/wx/ModalDialog.h"

namespace quorvel::ui {
namespace {

TEST(TwipScale, GrowsWithTheFont) {
  const TwipScale usual(13);
  EXPECT_EQ(usual.ToPixels(195), 13);
  EXPECT_EQ(usual.ToPixels(15), 1);
  EXPECT_EQ(usual.ToPixels(-15), -1);
  EXPECT_EQ(usual.ToTwips(376), 5640);
  EXPECT_EQ(TwipScale(26).ToPixels(5640), 752);
  EXPECT_EQ(TwipScale(26).ToTwips(752), 5640);
}

TEST(TwipScale, NeighboursMeetAtAnyScale) {
  for (int lineHeight = 9; lineHeight < 60; ++lineHeight) {
    const TwipScale scale(lineHeight);
    const TwipRect upper{.left = 37, .top = 121, .width = 1001, .height = 209};
    const TwipRect lower{.left = 37, .top = 330, .width = 1001, .height = 50};
    EXPECT_EQ(scale.ToPixels(upper).GetBottom() + 1, scale.ToPixels(lower).GetTop()) << lineHeight;
  }
}

// A window that is set to its smallest size must not be found smaller than that when it is measured again.
TEST(TwipScale, SizesOfWindowsGoThereAndBack) {
  const TwipScale usual(13);
  EXPECT_EQ(usual.ClientSizeFor({.width = 5640, .height = 2805}), wxSize(368, 160));
  for (int lineHeight = 13; lineHeight < 60; ++lineHeight) {
    const TwipScale scale(lineHeight);
    const wxSize client = scale.ClientSizeFor({.width = 8255, .height = 5400});
    EXPECT_EQ(scale.ClientSizeFor(scale.WindowSizeOf(client)), client) << lineHeight;
  }
}

TEST(TwipScale, IsMeasuredFromTheWindowsFont) {
  class Window : public ModalDialog {
   public:
    Window() : ModalDialog("Font") {}
  } window;
  const int before = window.Scale().ToPixels(195);
  EXPECT_EQ(before, window.GetCharHeight());
  window.SetFont(window.GetFont().Scaled(3));
  EXPECT_GT(window.Scale().ToPixels(195), before * 2);
}

}  // namespace
}  // namespace quorvel::ui
