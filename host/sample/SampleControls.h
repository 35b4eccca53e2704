#pragma once

class wxButton;
class wxCheckBox;
class wxChoice;
class wxSizer;
class wxStaticText;
class wxTextCtrl;
class wxWindow;

namespace sample {

class RecordList;

/// The controls of the main window, made and laid out in `panel`, which owns them. The window fills them and binds
/// their handlers.
class SampleControls {
 public:
  explicit SampleControls(wxWindow& panel);

  // In the order in which Tab passes them.
  wxChoice* user = nullptr;
  wxChoice* place = nullptr;
  wxTextCtrl* search = nullptr;
  RecordList* customers = nullptr;
  wxStaticText* name = nullptr;
  RecordList* orders = nullptr;
  wxCheckBox* popsUp = nullptr;
  wxButton* popUp = nullptr;
  wxButton* remarks = nullptr;
  wxButton* manage = nullptr;

 private:
  [[nodiscard]] wxSizer* MakeHead(wxWindow& panel);
  [[nodiscard]] wxSizer* MakeCustomers(wxWindow& panel);
  [[nodiscard]] wxSizer* MakeOrders(wxWindow& panel);
  [[nodiscard]] wxSizer* MakeButtons(wxWindow& panel);
};

}  // namespace sample
