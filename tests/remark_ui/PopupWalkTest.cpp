#include <tuple>

#include "platform/ShortDate.h"
#include "remark_ui/PopupLayout.h"
#include "remark_ui/PopupWalk.h"
#include "tests/runtime/RuntimeTest.h"

namespace quorvel::test {
namespace {

/// "P-P": three remarks, of which the second does not pop up. Each has its number for a text.
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

TEST(PopupWalk, ThePlaceInTheListDecidesWhatMayBePressed) {
  struct Case {
    const char* remarks;
    const char* presses;
    const char* text;
    const char* counter;
    const char* next;
    bool previousEnabled;
  };
  for (const Case& c : {
           Case{"P", "", "1", "Remark 1 of 1", "&Finish", false},
           Case{"PP-", "", "1", "Remark 1 of 2", "&Next", false},
           Case{"PP-", "N", "2", "Remark 2 of 2", "&Finish", true},
           Case{"PP-", "NP", "1", "Remark 1 of 2", "&Next", false},
           Case{"P-P", "N", "3", "Remark 2 of 2", "&Next", true},
           Case{"P-P", "NP", "1", "Remark 1 of 2", "&Next", false},
           Case{"P--PP", "N", "4", "Remark 2 of 3", "&Next", true},
           Case{"-P", "", "1", "Remark 1 of 1", "&Finish", false},
           Case{"-PP", "N", "2", "Remark 2 of 2", "&Finish", true},
       }) {
    const ContextHolder context;
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

TEST(PopupWalk, PastEitherEndOfTheListIsAnErrorOfWhoeverAsked) {
  for (const auto& [remarks, presses] : {std::pair{"P-P", "NN"}, {"-PP", "NP"}, {"-", "N"}}) {
    const ContextHolder context;
    AddRemarks(context, remarks);
    EXPECT_THAT(Caught([&, &presses = presses] { WalkAfter(context, presses); }), HasNumber(ErrorNumber::ObjectNotSet))
        << remarks;
  }
}

TEST(PopupWalk, WhatCannotBeReadLeavesItsTextAndTheRestIsShown) {
  const ContextHolder context;
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

  context->Dispose();  // by a host that does not wait
  walk.Fill(display);
  EXPECT_EQ(display.remark, "2");
  EXPECT_EQ(display.counter, "Remark 2 of 2");
  EXPECT_THAT(Caught([&] { walk.Next(); }), HasNumber(ErrorNumber::ObjectNotSet));
}

int Bottom(const ui::TwipRect& rectangle) { return rectangle.top + rectangle.height; }
int Right(const ui::TwipRect& rectangle) { return rectangle.left + rectangle.width; }

TEST(PopupLayout, FollowsTheWindowDownToItsSmallestSize) {
  struct Case {
    ui::TwipSize window;
    int textWidth;
    int textHeight;
    int buttonTop;
  };
  for (const Case& c : {Case{{5640, 2800}, 4440, 1350, 1855}, Case{{9000, 6000}, 7800, 4550, 5055},
                        Case{{5000, 6000}, 4440, 4550, 5055}, Case{{9000, 100}, 7800, 1350, 1855}}) {
    const PopupLayout layout = LayOutPopup(c.window, {});
    EXPECT_EQ(layout.remarkType.width, c.textWidth);
    EXPECT_EQ(layout.remark.width, c.textWidth);
    EXPECT_EQ(layout.remark.height, c.textHeight);
    EXPECT_EQ(layout.next, (ui::TwipRect{Right(layout.remark) - 1215, c.buttonTop, 1215, 375}));
    EXPECT_EQ(layout.previous, (ui::TwipRect{layout.next.left - 1215 - 60, c.buttonTop, 1215, 375}));
    EXPECT_EQ(layout.counter.top, c.buttonTop);
  }
}

TEST(PopupLayout, LargerControlsPushNothingOverAnother) {
  const PopupControls large{.typeHeight = 400, .next = {1500, 420}, .previous = {1600, 420}};
  const ui::TwipSize smallest = SmallestPopup(large);
  EXPECT_EQ(smallest, (ui::TwipSize{5640, 2800 + 115 + 45}));
  const PopupLayout layout = LayOutPopup(smallest, large);
  const PopupLayout drawn = LayOutPopup({5640, 2800}, {});
  EXPECT_EQ(layout.remark.height, drawn.remark.height);
  EXPECT_LT(Bottom(layout.remarkType), layout.remark.top);
  EXPECT_LT(Bottom(layout.remark), layout.next.top);
  EXPECT_EQ(smallest.height - Bottom(layout.next), 2800 - Bottom(drawn.next));
  EXPECT_EQ(Right(layout.next), Right(layout.remark));
  EXPECT_EQ(Right(layout.previous), layout.next.left - 60);
  EXPECT_LT(Right(layout.counter), layout.previous.left);
}

}  // namespace
}  // namespace quorvel::test
