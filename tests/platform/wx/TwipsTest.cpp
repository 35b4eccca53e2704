#include "platform/wx/Twips.h"

#include <gtest/gtest.h>

#include <wx/gdicmn.h>

#include "tests/support/wx/TestWindow.h"

namespace quorvel::ui {
namespace {

TEST(TwipScale, RoundsToTheNearestPixelAndTwip) {
  const TwipScale usual(13);
  EXPECT_EQ(usual.ToPixels(15), 1);
  EXPECT_EQ(usual.ToPixels(22), 1);
  EXPECT_EQ(usual.ToPixels(23), 2);
  EXPECT_EQ(usual.ToPixels(-15), -1);
  EXPECT_EQ(usual.ToPixels(-23), -2);
  EXPECT_EQ(usual.ToTwips(376), 5640);
  EXPECT_EQ(TwipScale(26).ToPixels(5640), 752);
}

// A window of the smallest size must not be smaller than that when it is measured again.
TEST(TwipScale, NeighboursMeetAndWindowSizesSurviveAtAnyScale) {
  EXPECT_EQ(TwipScale(13).ClientSizeFor({.width = 5640, .height = 2805}), wxSize(368, 160));
  for (int lineHeight = 9; lineHeight < 60; ++lineHeight) {
    const TwipScale scale(lineHeight);
    const TwipRect upper{.left = 37, .top = 121, .width = 1001, .height = 209};
    const TwipRect lower{.left = 37, .top = 330, .width = 1001, .height = 50};
    EXPECT_EQ(scale.ToPixels(upper).GetBottom() + 1, scale.ToPixels(lower).GetTop()) << lineHeight;
    const wxSize client = scale.ClientSizeFor({.width = 8255, .height = 5400});
    EXPECT_EQ(scale.ClientSizeFor(scale.WindowSizeOf(client)), client) << lineHeight;
  }
}

TEST(TwipScale, GrowsWithTheFontOfTheWindow) {
  test::TestWindow window("Font");
  const int before = window.Scale().ToPixels(195);
  EXPECT_EQ(before, window.GetCharHeight());
  window.SetFont(window.GetFont().Scaled(3));
  EXPECT_GT(window.Scale().ToPixels(195), before * 2);
}

}  // namespace
}  // namespace quorvel::ui
