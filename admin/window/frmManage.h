#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "admin/Administration.h"
#include "admin/ManageView.h"
#include "admin/NewItemDialog.h"
#include "admin/window/BoundControls.h"
#include "admin/window/TypedTexts.h"
#include "platform/wx/HostLoop.h"
#include "platform/wx/ModalDialog.h"

class wxButton;
class wxStaticBitmap;
class wxStaticText;

namespace quorvel {

class TabPanels;
class ViewBar;

/// The administration window. It makes the controls, forwards what the user does to Administration, and stays open
/// after an error, which it has shown.
///
/// A text box is written when the user leaves it, presses Enter in it, or does anything that would show another record;
/// Esc restores the stored text. A text that cannot be written keeps the window open once.
class frmManage : public ui::ModalDialog, private ManageView, private NewItemDialog {
 public:
  /// Throws as ModalDialog does. Load comes next.
  frmManage();

  /// Opens the connection and shows the first view. Errors go to the caller: without a connection there is nothing to
  /// show.
  void Load() { m_administration.Load(); }
  /// Shows the window until the user closes it.
  void RunModal();
  /// Shows the window on the host's loop and returns. The window destroys itself when it is closed.
  void ShowModeless();

 private:
  // ManageView
  void SetTitle(std::string_view title) override;
  using ModalDialog::SetTitle;
  void FreezeDrawing() override { Freeze(); }
  void ThawDrawing() override { Thaw(); }
  void SelectButton(std::string_view view) override;
  void ShowPanels(std::string_view view, std::string_view caption) override;
  void SelectTab(std::string_view key) override;
  [[nodiscard]] std::string SelectedTab() const override;

  // NewItemDialog
  [[nodiscard]] NewItem AskForContext() override;
  [[nodiscard]] NewItem AskForRemarkType() override;

  void KeepOutOfTexts(wxWindow* focus);
  void MakeControls();
  void LayOut();
  void FillEditBehavior();

  void BindHandlers();
  void BindRecords();
  void BindTexts();
  void BindRowHeight();
  void BindFields();
  void BindField(BoundCheck& check, std::string field);
  void BindField(BoundCombo& combo, std::string field);
  void BindPair(std::size_t i);
  void BindMoves(std::size_t i);
  void KeyPressed(wxKeyEvent& event);
  void CloseWindow(wxCloseEvent& event);

  void AddToCurrent(std::size_t i);
  void ShowAddedLink(std::size_t i);
  void bbViews_Click(std::string_view view);
  void cmdNew_Click();
  void cmdDelete_Click();
  void cboID_Click();

  /// Shows the tab again after an error that has left the window busy, and then the entry that the user has chosen is
  /// chosen still.
  void ChooseAfterError(BoundList& list);
  /// Writes the texts, and then runs the action unless a text is still not written.
  template <typename Action>
  void AfterTexts(const Action& action);

  ViewBar* bbViews = nullptr;
  wxStaticBitmap* picView = nullptr;
  wxStaticText* lblView = nullptr;
  TabPanels* tabPanels = nullptr;
  wxButton* cmdNew = nullptr;
  wxButton* cmdDelete = nullptr;
  BoundControls m_controls;
  Administration m_administration;
  TypedTexts m_texts;
  std::optional<ui::LifeOnHostLoop> m_life;  ///< while the window is modeless
  std::int32_t m_shownID = -1;               ///< the entry of cboID whose record is shown
  std::array<bool, 8> m_isAdded{};  ///< the selected entry of lstCurrent was added, and its link was not shown yet
};

}  // namespace quorvel
