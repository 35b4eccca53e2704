#include <wx/listbox.h>
#include <wx/uiaction.h>

#include <optional>

#include "remark_ui/frmChooseType.h"
#include "tests/remark_ui/Controls.h"
#include "tests/runtime/RuntimeTest.h"
#include "tests/support/wx/ModalScript.h"
#include "tests/support/wx/WaitFor.h"

namespace quorvel::test {
namespace {

/// A context of types with these rights to create: A, B, C and so on.
void AddTypes(const ContextHolder& context, std::initializer_list<std::int32_t> rights) {
  std::string id = "A";
  for (const std::int32_t right : rights) {
    auto type = std::make_shared<RemarkType>();
    type->SetTypeID(id);
    type->SetCaption("Type " + id);
    type->SetCanCreate(right);
    context->Types()->Add(std::move(type), id);
    ++id[0];
  }
}

/// What is chosen: the type's identifier and its position, such as "C3"; "-1" for none.
std::string Choose(frmChooseType& chooser, const ContextHolder& context) {
  std::int32_t index = 7;
  const auto type = chooser.ChooseType(*context, index);
  return (type ? type->TypeID() : "") + std::to_string(index);
}

TEST(ChooseType, AsksNobodyWhereThereIsNothingToDecide) {
  frmChooseType chooser;
  const ContextHolder none;
  AddTypes(none, {0, 0});
  EXPECT_EQ(Choose(chooser, none), "-1");
  const ContextHolder one;
  AddTypes(one, {0, 0, 1, 0});
  EXPECT_EQ(Choose(chooser, one), "C3");
  one->Dispose();
  EXPECT_EQ(Choose(chooser, one), "-1");
}

TEST(ChooseType, TakesWhatIsSelectedWhenTheUserAgreesAndNothingOtherwise) {
  using Action = std::function<void(frmChooseType&, wxListBox&)>;
  const Action toLast = [](frmChooseType& chooser, wxListBox& list) {
    list.SetSelection(1);
    Press(chooser, "cmdOK");
  };
  const Action doubleClick = [](frmChooseType&, wxListBox& list) {
    list.SetSelection(1);
    wxCommandEvent event(wxEVT_LISTBOX_DCLICK, list.GetId());
    list.Command(event);
  };
  const Action keys = [](frmChooseType& chooser, wxListBox& list) {
    wxUIActionSimulator keyboard;
    EXPECT_TRUE(WaitFor([&] { return list.HasFocus(); }));
    keyboard.Char(WXK_DOWN);
    EXPECT_TRUE(WaitFor([&] { return list.GetSelection() == 1; }));
    keyboard.Char(WXK_RETURN);
    EXPECT_TRUE(WaitFor([&] { return !chooser.IsShown(); }));
  };
  const Action escape = [](frmChooseType& chooser, wxListBox&) {
    wxUIActionSimulator().Char(WXK_ESCAPE);
    EXPECT_TRUE(WaitFor([&] { return !chooser.IsShown(); }));
  };
  const ContextHolder context;
  AddTypes(context, {0, 1, 0, -1});
  frmChooseType chooser;
  for (const auto& [act, chosen] : std::initializer_list<std::pair<Action, const char*>>{
           {[](auto&window, auto&) { Press(window, "cmdOK"); }, "B2"},
           {toLast, "D4"},
           {[](auto&window, auto&) { Press(window, "cmdCancel"); }, "-1"},
           {doubleClick, "D4"},
           {[](auto&window, auto&) { window.Close(); }, "-1"},
           {keys, "D4"},
           {escape, "-1"}}) {
    ModalScript script;
    script.ExpectWindow<frmChooseType>("Choose Remark Type", [&act = act](frmChooseType& window) {
      auto& list = Find<wxListBox>(window, "lstRemarkType");
      EXPECT_THAT(list.GetStrings(), testing::ElementsAre("Type B", "Type D"));
      EXPECT_EQ(list.GetSelection(), 0);
      act(window, list);
    });
    EXPECT_EQ(Choose(chooser, context), chosen);
  }
}

}  // namespace
}  // namespace quorvel::test
