#pragma once

#include <functional>

#include <wx/frame.h>
#include <wx/timer.h>

#include "host/sample/BusinessData.h"

class wxButton;
class wxCheckBox;
class wxChoice;
class wxSizer;
class wxStaticText;
class wxTextCtrl;

namespace sample {

struct ComponentError;
class OwnersRemarks;
class RecordList;

/// The main window of the business: its customers with their orders, and buttons for the component's windows.
class SampleFrame : public wxFrame {
 public:
  explicit SampleFrame(BusinessData data);

 private:
  wxSizer* MakeHead(wxWindow* panel);
  wxSizer* MakeCustomers(wxWindow* panel);
  wxSizer* MakeOrders(wxWindow* panel);
  wxSizer* MakeButtons(wxWindow* panel);
  void BindEvents();

  /// Lists the users and chooses the one with that ID, or the first.
  void FillUsers(const wxString& chosenID);
  void FindCustomers();
  void ShowCustomer();
  void ShowState();
  /// Starts the timer: the pop-up opens after the choice has not changed for a moment.
  void PopUpSoon();
  void PopUpIfWanted();
  void PopUp();
  void EditRemarks();
  void EditUntilClosed(OwnersRemarks& remarks);

  /// Opens the administration, then reads the users again, because it may have changed them.
  void Manage();

  [[nodiscard]] const User& ActingAs() const;
  [[nodiscard]] const Customer* ChosenCustomer() const;
  /// The chosen customer or the chosen order, as the place decides.
  [[nodiscard]] wxString Owner() const;
  [[nodiscard]] OwnersRemarks Remarks() const;
  /// Runs the action and shows its error.
  void Try(const std::function<void()>& action);
  void ShowError(const wxString& text);
  [[nodiscard]] bool WantsItOpenAgain(const ComponentError& error);

  BusinessData m_data;
  wxChoice* m_user = nullptr;
  wxChoice* m_place = nullptr;
  wxTextCtrl* m_search = nullptr;
  RecordList* m_customers = nullptr;
  wxStaticText* m_name = nullptr;
  RecordList* m_orders = nullptr;
  wxCheckBox* m_popsUp = nullptr;
  wxButton* m_popUp = nullptr;
  wxButton* m_remarks = nullptr;
  wxButton* m_manage = nullptr;
  wxTimer m_rested;
};

}  // namespace sample
