// PopupWalk decides what is shown, and LayOutPopup where. The window copies both to its controls and handles the keys.

#include "remark_ui/frmPopup.h"

#include <algorithm>
#include <utility>

#include <wx/button.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "platform/AtScopeEnd.h"
#include "platform/wx/BoxText.h"
#include "platform/wx/MakeButton.h"
#include "platform/wx/NativeControls.h"
#include "platform/wx/Text.h"
#include "remark_ui/OwnerTitle.h"
#include "runtime/RemarkContext.h"

namespace quorvel {
namespace {

constexpr ui::TwipSize kFirstPopupSize{7200, 4200};

}  // namespace

frmPopup::frmPopup() : ModalDialog(wxString()) {
  CreateControls();
  BindHandlers();
}

void frmPopup::CreateControls() {
  const auto label = [this](const char* text, const char* name) {
    return new wxStaticText(this, wxID_ANY, text, wxDefaultPosition, wxDefaultSize, 0, name);
  };
  const auto textBox = [this](long style, const char* name, const char* spokenName) {
    auto* box = new wxTextCtrl(this, wxID_ANY, "Text1", wxDefaultPosition, wxDefaultSize, style | wxTE_READONLY,
                               wxDefaultValidator, name);
    ui::SetAccessibleName(*box, spokenName);
    ui::ShowFocus(*box);
    return box;
  };
  Label2 = label("Type", "Label2");
  txtRemarkType = textBox(0, "txtRemarkType", "Type");
  Label1 = label("Remark", "Label1");
  txtRemark = textBox(wxTE_MULTILINE | wxTE_BESTWRAP, "txtRemark", "Remark");
  ui::SetTextMargins(*txtRemark);
  ui::KeepScrollBars(*txtRemark);
  lblRemarkCounter = label("Label1", "lblRemarkCounter");
  for (wxStaticText* beside : {Label2, lblRemarkCounter}) ui::CentreText(*beside);
  cmdPrev = ui::MakeButton(*this, "cmdPrev", "&Previous");
  ui::HideCaret(*txtRemark);
  cmdNext = ui::MakeButton(*this, "cmdNext", "Next");
}

void frmPopup::BindHandlers() {
  cmdPrev->Bind(wxEVT_BUTTON, UserAction([this] { cmdPrev_Click(); }));
  cmdNext->Bind(wxEVT_BUTTON, UserAction([this] { cmdNext_Click(); }));
  Bind(wxEVT_PAINT, Guarded([this](wxPaintEvent& event) {
         event.Skip();
         m_isSeen = true;
       }));
  Bind(wxEVT_SIZE, Guarded([this](wxSizeEvent& event) {
         event.Skip();
         if (!IsIconized()) LayOut();
       }));
  Bind(wxEVT_CHAR_HOOK, UserAction([this](wxKeyEvent& event) { KeyPressed(event); }));
}

void frmPopup::MeasureControls() {
  const ui::TwipScale scale = Scale();
  const auto atLeast = [&scale](const ui::TwipSize& drawn, const wxWindow& control) {
    const wxSize best = control.GetBestSize();
    // One pixel more, because rounding a position may cost one.
    return ui::TwipSize{std::max(drawn.width, scale.ToTwips(best.GetWidth() + 1)),
                        std::max(drawn.height, scale.ToTwips(best.GetHeight() + 1))};
  };
  const PopupSizes drawn;
  m_sizes = drawn;
  m_sizes.typeHeight = atLeast({0, drawn.typeHeight}, *txtRemarkType).height;
  m_sizes.firstLine = scale.ToTwips(ui::FirstLineTop(*txtRemark));
  m_sizes.previous = atLeast(drawn.previous, *cmdPrev);
  for (const char* caption : {"&Next", "&Finish"}) {
    cmdNext->SetLabel(caption);
    const ui::TwipSize size = atLeast(drawn.next, *cmdNext);
    m_sizes.next = {std::max(m_sizes.next.width, size.width), std::max(m_sizes.next.height, size.height)};
  }
  m_sizes.screen = Room();
  SetSmallestInside(scale.ClientSizeFor(SmallestPopup(m_sizes)));
}

void frmPopup::View(RemarkContext& context) {
  PopupWalk walk(context.shared_from_this());
  if (walk.PopupCount() <= 0) return;
  if (m_walk) return RunModal();  // throws, and the open window stays as it is
  // At the end nothing of the context stays in the window.
  const AtScopeEnd closed([this] {
    m_walk.reset();
    m_display = {};
  });
  m_walk = std::move(walk);
  SetTitle(ui::ToWx(OwnerTitle(context)));
  MeasureControls();
  PlaceInMiddle(Scale().ClientSizeFor(kFirstPopupSize));
  Display();
  txtRemark->SetFocus();
  RunModal();
}

void frmPopup::Display() {
  m_isSeen = false;
  Refresh();
  m_walk->Fill(m_display);
  const wxString nextCaption = ui::ToWx(m_display.nextCaption);
  // A disabled button keeps the focus, and the window would then ignore the keyboard.
  if (!m_display.previousEnabled && cmdPrev->HasFocus()) cmdNext->SetFocus();
  cmdPrev->Enable(m_display.previousEnabled);
  cmdPrev->Show(m_display.previousVisible);
  cmdNext->SetLabel(nextCaption);
  ui::SetAccessibleName(*cmdNext, ui::FromWx(wxControl::RemoveMnemonics(nextCaption)));
  txtRemark->ChangeValue(ui::ToWx(ShownText(m_display.remark)));
  txtRemark->SetInsertionPoint(0);
  txtRemark->ShowPosition(0);
  txtRemarkType->ChangeValue(ui::ToWx(m_display.remarkType));
  txtRemarkType->SetInsertionPoint(0);
  lblRemarkCounter->SetLabelText(ui::ToWx(m_display.counter));
  LayOut();
}

void frmPopup::LayOut() {
  const ui::TwipScale scale = Scale();
  const PopupLayout layout = LayOutPopup(scale.WindowSizeOf(GetClientSize()), m_sizes);
  const auto place = [&scale](wxWindow& control, const ui::TwipRect& rectangle) {
    control.SetSize(scale.ToPixels(rectangle));
  };
  place(*Label2, layout.typeLabel);
  place(*txtRemarkType, layout.remarkType);
  place(*Label1, layout.remarkLabel);
  place(*txtRemark, layout.remark);
  place(*lblRemarkCounter, layout.counter);
  place(*cmdPrev, layout.previous);
  place(*cmdNext, layout.next);
}

void frmPopup::cmdPrev_Click() {
  if (!m_isSeen) return;
  m_walk->Previous();
  Display();
}

void frmPopup::cmdNext_Click() {
  if (!m_isSeen) return;
  if (m_walk->IsAtEnd()) return Finish();
  m_walk->Next();
  Display();
}

// Buttons do not scroll the text.
void frmPopup::KeyPressed(wxKeyEvent& event) {
  if (!m_isSeen) return;
  const int key = event.GetKeyCode();
  const bool scrolls = event.GetModifiers() == wxMOD_NONE && FindFocus() != txtRemark;
  if (scrolls && key == WXK_PAGEDOWN) {
    txtRemark->PageDown();
  } else if (scrolls && key == WXK_PAGEUP) {
    txtRemark->PageUp();
  } else {
    event.Skip();
  }
}

}  // namespace quorvel
