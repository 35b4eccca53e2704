// The rules of the pop-up without a window: which remark comes next, its texts, the layout.
#include <tuple>

#include "platform/ShortDate.h"
#include "remark_ui/PopupLayout.h"
#include "remark_ui/PopupWalk.h"
#include "tests/runtime/RuntimeTest.h"

namespace quorvel::test {
namespace {

class PopupWalkTest : public testing::Test {
 protected:
  TestDatabase m_database;
};

/// "P-P": three remarks, of which the second does not pop up. The text of each is its number.
void AddRemarks(const ContextHolder& context, const std::string& pattern) {
  for (const bool showPopup : {false, true}) {
    auto type = std::make_shared<RemarkType>();
    type->SetCaption(showPopup ? "Loud" : "Quiet");
    type->SetShowPopup(showPopup);
    context->Types()->Add(std::move(type), showPopup ? "P" : "-");
  }
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    context->AddRemark(pattern.substr(i, 1), std::to_string(i + 1), "jsmith");
  }
}

PopupWalk WalkAfter(const ContextHolder& context, const std::string& presses) {
  PopupWalk walk(context->shared_from_this());
  for (const char button : presses) button == 'N' ? walk.Next() : walk.Previous();
  return walk;
}

TEST_F(PopupWalkTest, PositionInTheListDecidesTheButtons) {
  struct Case {
    const char* remarks;
    const char* presses;
    const char* text;
    const char* counter;
    const char* next;
    bool previousEnabled;
  };
  for (const Case& c : {
           Case{"PP-", "", "1", "Remark 1 of 2", "&Next", false},
           Case{"PP-", "N", "2", "Remark 2 of 2", "&Finish", true},
           Case{"P-P", "N", "3", "Remark 2 of 2", "&Next", true},
           Case{"P-P", "NP", "1", "Remark 1 of 2", "&Next", false},
           Case{"P--PP", "N", "4", "Remark 2 of 3", "&Next", true},
           Case{"-P", "", "1", "Remark 1 of 1", "&Finish", false},
           Case{"-PP", "N", "2", "Remark 2 of 2", "&Finish", true},
       }) {
    const ContextHolder context("CustMaint", "", "admin");
    AddRemarks(context, c.remarks);
    const PopupWalk walk = WalkAfter(context, c.presses);
    PopupDisplay display;
    walk.Fill(display);
    EXPECT_EQ(std::tie(display.remark, display.counter, display.nextCaption, display.previousEnabled),
              std::make_tuple(c.text, c.counter, c.next, c.previousEnabled))
        << c.remarks << " after " << c.presses;
    EXPECT_EQ(display.previousVisible, walk.PopupCount() > 1);
    EXPECT_EQ(walk.IsAtEnd(), display.nextCaption == "&Finish");
  }
}

TEST_F(PopupWalkTest, MovingPastEitherEndIsAnError) {
  for (const auto& [remarks, presses] : {std::pair{"P-P", "NN"}, {"-PP", "NP"}, {"-", "N"}}) {
    const ContextHolder context("CustMaint", "", "admin");
    AddRemarks(context, remarks);
    EXPECT_THAT(Caught([&, &presses = presses] { WalkAfter(context, presses); }), HasNumber(ErrorNumber::ObjectNotSet))
        << remarks;
  }
}

TEST_F(PopupWalkTest, AnUnreadableTextKeepsThePreviousOneAndTheRestIsShown) {
  const ContextHolder context("CustMaint", "", "admin");
  AddRemarks(context, "-PP");
  RemarkAt(context, 1).SetRemarkType(nullptr);
  PopupWalk walk = WalkAfter(context, "");
  PopupDisplay display;
  walk.Fill(display);
  EXPECT_EQ(display.remarkType, "Text1");
  EXPECT_EQ(display.remark, "1");

  walk.Next();
  walk.Fill(display);
  EXPECT_EQ(display.remarkType, "Loud  (jsmith on " + FormatShortDate(RemarkAt(context, 2).DateStamp()) + ")");

  context->Dispose();  // by the host, while the window is open
  walk.Fill(display);
  EXPECT_EQ(display.remark, "2");
  EXPECT_EQ(display.counter, "Remark 2 of 2");
  EXPECT_THAT(Caught([&] { walk.Next(); }), HasNumber(ErrorNumber::ObjectNotSet));
}

TEST(PopupLayout, TextGetsAllAdditionalSpace) {
  const PopupLayout smallest = LayOutPopup({5640, 2800}, {});
  EXPECT_EQ(smallest.remark, (ui::TwipRect{960, 405, 4440, 1350}));
  EXPECT_EQ(smallest.next, (ui::TwipRect{4185, 1855, 1215, 375}));
  EXPECT_EQ(smallest.previous, (ui::TwipRect{2910, 1855, 1215, 375}));
  const PopupLayout larger = LayOutPopup({9000, 6000}, {});
  EXPECT_EQ(larger.remarkType.width, 7800);
  EXPECT_EQ(larger.remark, (ui::TwipRect{960, 405, 7800, 4550}));
  EXPECT_EQ(larger.counter.top, 5055);
  EXPECT_EQ(LayOutPopup({5639, 6000}, {}).remark, (ui::TwipRect{960, 405, 4440, 4550}));
  EXPECT_EQ(LayOutPopup({9000, -5}, {}).next.top, smallest.next.top);
}

TEST(PopupLayout, LargerControlsMakeTheWindowHigher) {
  const PopupSizes large{.typeHeight = 400, .next = {1500, 420}, .previous = {1600, 420}};
  const ui::TwipSize smallest = SmallestPopup(large);
  EXPECT_EQ(smallest, (ui::TwipSize{5640, 2800 + 115 + 45}));
  const PopupLayout layout = LayOutPopup(smallest, large);
  EXPECT_EQ(layout.remark, (ui::TwipRect{960, 405 + 115, 4440, 1350}));
  EXPECT_EQ(layout.next, (ui::TwipRect{3900, 1855 + 115, 1500, 420}));
  EXPECT_EQ(layout.previous, (ui::TwipRect{2240, 1855 + 115, 1600, 420}));
  EXPECT_LT(layout.counter.left + layout.counter.width, layout.previous.left);
  EXPECT_EQ(SmallestPopup({.screen = {4000, 2000}}), (ui::TwipSize{4000, 2000})) << "a small screen";
}

}  // namespace
}  // namespace quorvel::test
