// Builds the controls and binds the handlers. Every call of the component goes through Try, which shows its error.

#include "host/sample/SampleFrame.h"

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

#include <wx/accel.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/msgdlg.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "host/sample/Component.h"
#include "host/sample/RecordList.h"
#include "platform/wx/Picture.h"

namespace sample {
namespace {

/// A place in this program where remarks are shown; the database knows it by its ID.
struct Place {
  const char* id;
  const char* caption;
  bool isForOrders;
};
constexpr std::array kPlaces{Place{"CustMaint", "Customer Maintenance", false},
                             Place{"CustInq", "Customer Inquiry", false}, Place{"OrderEntry", "Order Entry", true}};

constexpr int kRestMilliseconds = 500;

const Place& Chosen(const wxChoice& places) { return kPlaces.at(static_cast<std::size_t>(places.GetSelection())); }

// Access key and accessible name of a label belong to the control that is created next.
wxStaticText* Label(wxWindow* panel, const char* text) { return new wxStaticText(panel, wxID_ANY, text); }

wxString Describe(const ComponentError& error) {
  return error.description + wxString::Format("\n\nError %ld from %s", error.number, error.source);
}

}  // namespace

SampleFrame::SampleFrame(BusinessData data)
    : wxFrame(nullptr, wxID_ANY, "Customers and Orders"), m_data(std::move(data)), m_rested(this) {
  SetIcons(quorvel::ui::ProductIcons());
  auto* panel = new wxPanel(this);
  const int gap = FromDIP(12);
  auto* lists = new wxBoxSizer(wxHORIZONTAL);
  lists->Add(MakeCustomers(panel), wxSizerFlags(3).Expand());
  lists->Add(MakeOrders(panel), wxSizerFlags(2).Expand().Border(wxLEFT, gap));
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(MakeHead(panel), wxSizerFlags().Expand().Border(wxALL, gap));
  all->Add(lists, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, gap));
  all->Add(MakeButtons(panel), wxSizerFlags().Expand().Border(wxALL, gap));
  panel->SetSizer(all);
  all->SetSizeHints(this);
  CreateStatusBar();
  SetSize(FromDIP(wxSize(820, 540)));
  Centre();
  BindEvents();
  FindCustomers();
  m_search->SetFocus();
}

wxSizer* SampleFrame::MakeHead(wxWindow* panel) {
  auto* userLabel = Label(panel, "&Acting as");
  m_user = new wxChoice(panel, wxID_ANY);
  FillUsers({});
  auto* placeLabel = Label(panel, "&Working in");
  m_place = new wxChoice(panel, wxID_ANY);
  for (const Place& place : kPlaces) m_place->Append(place.caption);
  m_place->SetSelection(0);

  const int gap = FromDIP(6);
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(userLabel, wxSizerFlags().CentreVertical());
  row->Add(m_user, wxSizerFlags(1).CentreVertical().Border(wxLEFT, gap));
  row->Add(placeLabel, wxSizerFlags().CentreVertical().Border(wxLEFT, 4 * gap));
  row->Add(m_place, wxSizerFlags(1).CentreVertical().Border(wxLEFT, gap));
  return row;
}

wxSizer* SampleFrame::MakeCustomers(wxWindow* panel) {
  auto* searchLabel = Label(panel, "&Find");
  m_search = new wxTextCtrl(panel, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER);
  m_search->SetHint("Part of a name or number");
  m_customers = new RecordList(panel, "Customer", "Name");
  m_customers->SetMinSize(FromDIP(wxSize(340, 240)));

  const int gap = FromDIP(6);
  auto* search = new wxBoxSizer(wxHORIZONTAL);
  search->Add(searchLabel, wxSizerFlags().CentreVertical());
  search->Add(m_search, wxSizerFlags(1).CentreVertical().Border(wxLEFT, gap));
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(search, wxSizerFlags().Expand());
  column->Add(m_customers, wxSizerFlags(1).Expand().Border(wxTOP, gap));
  return column;
}

wxSizer* SampleFrame::MakeOrders(wxWindow* panel) {
  m_name = new wxStaticText(panel, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxST_ELLIPSIZE_END);
  m_name->SetFont(m_name->GetFont().Bold().Larger());
  auto* ordersLabel = Label(panel, "&Orders");
  m_orders = new RecordList(panel, "Order", "Date");
  m_orders->SetMinSize(FromDIP(wxSize(240, 160)));

  const int gap = FromDIP(6);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(m_name, wxSizerFlags().Expand().Border(wxTOP, gap));
  column->Add(ordersLabel, wxSizerFlags().Border(wxTOP, gap));
  column->Add(m_orders, wxSizerFlags(1).Expand().Border(wxTOP, gap));
  return column;
}

wxSizer* SampleFrame::MakeButtons(wxWindow* panel) {
  m_popsUp = new wxCheckBox(panel, wxID_ANY, "&Show at once what must be seen");
  m_popsUp->SetValue(true);
  m_popUp = new wxButton(panel, wxID_ANY, "&Pop-up");
  m_remarks = new wxButton(panel, wxID_ANY, "&Remarks");
  m_manage = new wxButton(panel, wxID_ANY, "&Manage");

  const int gap = FromDIP(6);
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(m_popsUp, wxSizerFlags(1).CentreVertical());
  for (wxButton* button : {m_popUp, m_remarks, m_manage}) row->Add(button, wxSizerFlags().Border(wxLEFT, gap));
  return row;
}

void SampleFrame::BindEvents() {
  // No pop-up before Enter: a window would open between two letters.
  m_search->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { FindCustomers(); });
  m_search->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { PopUpIfWanted(); });
  m_search->Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_DOWN) {
      m_customers->SetFocus();
    } else {
      event.Skip();
    }
  });
  m_customers->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) {
    ShowCustomer();
    PopUpSoon();
  });
  m_orders->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) {
    ShowState();
    if (Chosen(*m_place).isForOrders) PopUpSoon();
  });
  for (RecordList* list : {m_customers, m_orders}) {
    list->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent&) { PopUpIfWanted(); });
  }
  // The access key of the label would focus the scroll bars around the list.
  wxAcceleratorEntry toOrders(wxACCEL_ALT, 'O', m_orders->GetId());
  SetAcceleratorTable({1, &toOrders});
  Bind(
      wxEVT_MENU, [this](wxCommandEvent&) { m_orders->SetFocus(); }, m_orders->GetId());
  Bind(wxEVT_TIMER, [this](wxTimerEvent&) { PopUpIfWanted(); });
  m_place->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { ShowState(); });
  m_popUp->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Try([this] { PopUp(); }); });
  m_remarks->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Try([this] { EditRemarks(); }); });
  m_manage->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Try([this] { Manage(); }); });
}

void SampleFrame::FillUsers(const wxString& chosenID) {
  m_user->Clear();
  for (const User& user : m_data.users) {
    const int position = m_user->Append(user.name.empty() ? user.id : user.id + "  (" + user.name + ")");
    if (position == 0 || user.id == chosenID) m_user->SetSelection(position);
  }
}

void SampleFrame::FindCustomers() {
  std::vector<RecordList::Line> lines;
  for (const Customer& customer : m_data.customers) {
    if (IsFound(customer, m_search->GetValue())) lines.push_back({customer.id, customer.name});
  }
  m_customers->Fill(lines);
  ShowCustomer();
}

void SampleFrame::ShowCustomer() {
  m_rested.Stop();
  const Customer* customer = ChosenCustomer();
  std::vector<RecordList::Line> lines;
  if (customer != nullptr) {
    for (const Order& order : customer->orders) lines.push_back({order.id, order.date.FormatDate()});
  }
  m_name->SetLabelText(customer == nullptr ? wxString() : customer->name);
  m_orders->Fill(lines);
  ShowState();
}

void SampleFrame::ShowState() {
  const wxString owner = Owner();
  const bool canShow = !owner.empty() && m_user->GetSelection() != wxNOT_FOUND;
  m_popUp->Enable(canShow);
  m_remarks->Enable(canShow);
  const wxString kind = Chosen(*m_place).isForOrders ? "order" : "customer";
  SetStatusText(owner.empty() ? "No " + kind + " is chosen." : "Remarks of " + kind + " " + owner);
}

void SampleFrame::PopUpSoon() {
  if (m_popsUp->GetValue()) m_rested.StartOnce(kRestMilliseconds);
}

void SampleFrame::PopUpIfWanted() {
  m_rested.Stop();
  if (m_popsUp->GetValue() && m_popUp->IsEnabled()) Try([this] { Remarks().PopUp(); });
}

void SampleFrame::PopUp() {
  OwnersRemarks remarks = Remarks();
  if (remarks.PopupCount() == 0) {
    SetStatusText("Nothing of " + Owner() + " must be seen.");
    return;
  }
  remarks.PopUp();
}

void SampleFrame::EditRemarks() {
  OwnersRemarks remarks = Remarks();
  EditUntilClosed(remarks);
  if (remarks.IsLeftToSave()) {
    SetStatusText(wxString("Nothing was saved: ") + Chosen(*m_place).caption + " is for looking at remarks.");
  }
}

void SampleFrame::EditUntilClosed(OwnersRemarks& remarks) {
  for (;;) {
    try {
      remarks.Edit();
      return;
    } catch (const ComponentError& error) {
      if (!WantsItOpenAgain(error)) return;
    }
  }
}

void SampleFrame::Manage() {
  OpenAdministration();
  const wxString actingAs = m_user->GetSelection() == wxNOT_FOUND ? wxString() : ActingAs().id;
  m_data.users = ReadBusinessData(ConnectionString()).users;
  FillUsers(actingAs);
  ShowState();
}

const User& SampleFrame::ActingAs() const { return m_data.users.at(static_cast<std::size_t>(m_user->GetSelection())); }

const Customer* SampleFrame::ChosenCustomer() const {
  const wxString id = m_customers->ChosenID();
  const auto found = std::find_if(m_data.customers.begin(), m_data.customers.end(),
                                  [&](const Customer& customer) { return customer.id == id; });
  return found == m_data.customers.end() ? nullptr : &*found;
}

wxString SampleFrame::Owner() const {
  return Chosen(*m_place).isForOrders ? m_orders->ChosenID() : m_customers->ChosenID();
}

OwnersRemarks SampleFrame::Remarks() const { return {Chosen(*m_place).id, Owner(), ActingAs().id}; }

void SampleFrame::Try(const std::function<void()>& action) {
  m_rested.Stop();
  try {
    action();
  } catch (const ComponentError& error) {
    ShowError(Describe(error));
  } catch (const std::exception& error) {
    ShowError(wxString::FromUTF8(error.what()));
  }
}

void SampleFrame::ShowError(const wxString& text) {
  wxMessageDialog(this, text, GetTitle(), wxOK | wxICON_EXCLAMATION).ShowModal();
}

bool SampleFrame::WantsItOpenAgain(const ComponentError& error) {
  wxMessageDialog box(this, Describe(error) + "\n\nWhat was typed is still there. Throw it away?", GetTitle(),
                      wxYES_NO | wxNO_DEFAULT | wxICON_EXCLAMATION);
  box.SetYesNoLabels("&Throw away", "&Open again");
  // Esc must not throw anything away.
  return box.ShowModal() != wxID_YES;
}

}  // namespace sample
