#include <wx/listbox.h>
#include <wx/uiaction.h>

#include "remark_ui/frmChooseType.h"
#include "tests/remark_ui/FormTest.h"

namespace quorvel::test {
namespace {

/// Adds the types A, B, C and so on with these rights to create.
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

/// The identifier and position of the chosen type, such as "C3"; "-1" for none.
std::string Choose(frmChooseType& chooser, const ContextHolder& context) {
  std::int32_t index = 7;
  const auto type = chooser.ChooseType(*context, index);
  return (type ? type->TypeID() : "") + std::to_string(index);
}

TEST(ChooseType, OpensNoWindowForOneTypeOrNone) {
  frmChooseType chooser;
  const ContextHolder none;
  AddTypes(none, {0, 0});
  EXPECT_EQ(Choose(chooser, none), "-1");
  const ContextHolder one;
  AddTypes(one, {0, 0, 1, 0});
  EXPECT_EQ(Choose(chooser, one), "C3");
  one->Dispose();  // which leaves no types
  EXPECT_EQ(Choose(chooser, one), "-1");
}

TEST(ChooseType, ReturnsTheSelectedTypeUnlessCancelled) {
  struct Case {
    std::function<void(frmChooseType&, wxListBox&)> act;
    const char* chosen;
  };
  const auto doubleClickOnLast = [](frmChooseType&, wxListBox& list) {
    list.SetSelection(1);
    wxCommandEvent event(wxEVT_LISTBOX_DCLICK, list.GetId());
    list.Command(event);
  };
  const auto downAndEnter = [](frmChooseType&, wxListBox& list) {
    EXPECT_TRUE(WaitFor([&] { return list.HasFocus(); }));
    wxUIActionSimulator().Char(WXK_DOWN);
    EXPECT_TRUE(WaitFor([&] { return list.GetSelection() == 1; }));
    wxUIActionSimulator().Char(WXK_RETURN);
  };
  const ContextHolder context;
  AddTypes(context, {0, 1, 0, -1});
  frmChooseType chooser;
  for (const auto& [act, chosen] :
       {Case{[](auto&window, auto&) { Press(window, "cmdOK"); }, "B2"},
        Case{[](auto&window, auto&) { Press(window, "cmdCancel"); }, "-1"}, Case{doubleClickOnLast, "D4"},
        Case{[](auto&window, auto&) { window.Close(); }, "-1"}, Case{downAndEnter, "D4"},
        Case{[](auto&, auto&) { wxUIActionSimulator().Char(WXK_ESCAPE); }, "-1"}}) {
    ModalScript script;
    script.ExpectWindow<frmChooseType>("Choose Remark Type", [&act = act](frmChooseType& window) {
      auto& list = Find<wxListBox>(window, "lstRemarkType");
      EXPECT_THAT(list.GetStrings(), ElementsAre("Type B", "Type D"));
      EXPECT_EQ(list.GetSelection(), 0);
      act(window, list);
      EXPECT_TRUE(WaitFor([&] { return !window.IsShown(); }));
    });
    EXPECT_EQ(Choose(chooser, context), chosen);
  }
}

}  // namespace
}  // namespace quorvel::test
