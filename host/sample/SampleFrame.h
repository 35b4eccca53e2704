#pragma once

#include <functional>

#include <wx/frame.h>
#include <wx/timer.h>

#include "host/sample/BusinessData.h"
#include "host/sample/SampleControls.h"

class wxPanel;

namespace sample {

class OwnersRemarks;

/// The main window of the business: its customers with their orders, and buttons for the component's windows.
class SampleFrame : public wxFrame {
 public:
  explicit SampleFrame(BusinessData data);

 private:
  /// Shows the choice on the left and the database file on the right.
  void MakeStatusBar();
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

  /// Opens the administration, then reads the users again, because it may have changed them.
  void Manage();

  [[nodiscard]] const User& ActingAs() const;
  [[nodiscard]] const Customer* ChosenCustomer() const;
  /// The chosen customer or the chosen order, as the place decides.
  [[nodiscard]] wxString Owner() const;
  [[nodiscard]] OwnersRemarks Remarks() const;
  /// Runs the action and shows its error.
  void Try(const std::function<void()>& action);

  BusinessData m_data;
  wxPanel* m_panel;
  SampleControls m_controls;
  wxTimer m_rested;
};

}  // namespace sample
