// Binds the handlers and shows the choice. Every call of the component goes through Try, which shows its error.

#include "host/sample/SampleFrame.h"

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

#include <wx/accel.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/display.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/statusbr.h>
#include <wx/textctrl.h>

#include "host/sample/Boxes.h"
#include "host/sample/Component.h"
#include "host/sample/EditUntilSettled.h"
#include "host/sample/Places.h"
#include "host/sample/RecordList.h"
#include "platform/wx/Picture.h"

namespace sample {
namespace {

constexpr int kRestMilliseconds = 500;

const Place& Chosen(const wxChoice& places) { return kPlaces.at(static_cast<std::size_t>(places.GetSelection())); }

}  // namespace

SampleFrame::SampleFrame(BusinessData data)
    : wxFrame(nullptr, wxID_ANY, kProgramTitle),
      m_data(std::move(data)),
      m_panel(new wxPanel(this)),
      m_controls(*m_panel),
      m_rested(this) {
  SetIcons(quorvel::ui::ProductIcons());
  m_panel->GetSizer()->SetSizeHints(this);
  MakeStatusBar();
  // In lines of the font, because the desktop's scale of texts may be another one than that of its pixels.
  const int line = GetCharHeight();
  wxSize size(48 * line, 32 * line);
  size.DecTo(wxDisplay(this).GetClientArea().GetSize());
  SetSize(size);
  Centre();
  BindEvents();
  FillUsers({});
  FindCustomers();
  m_controls.search->SetFocus();
}

void SampleFrame::MakeStatusBar() {
  constexpr std::array kWidths{-1, -1};
  // The end of a path says more than its beginning.
  wxStatusBar* bar =
      CreateStatusBar(static_cast<int>(kWidths.size()),
                      wxSTB_SIZEGRIP | wxSTB_SHOW_TIPS | wxSTB_ELLIPSIZE_START | wxFULL_REPAINT_ON_RESIZE);
  bar->SetStatusWidths(static_cast<int>(kWidths.size()), kWidths.data());
  bar->SetStatusText("Database: " + m_data.file, 1);
}

void SampleFrame::BindEvents() {
  // No pop-up before Enter: a window would open between two letters.
  m_controls.search->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { FindCustomers(); });
  m_controls.search->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { PopUpIfWanted(); });
  m_controls.search->Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_DOWN) {
      m_controls.customers->SetFocus();
    } else {
      event.Skip();
    }
  });
  m_controls.customers->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) {
    ShowCustomer();
    PopUpSoon();
  });
  m_controls.orders->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) {
    ShowState();
    if (Chosen(*m_controls.place).isForOrders) PopUpSoon();
  });
  for (RecordList* list : {m_controls.customers, m_controls.orders}) {
    list->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent&) { PopUpIfWanted(); });
  }
  // The access key of the label would focus the scroll bars around the list.
  wxAcceleratorEntry toOrders(wxACCEL_ALT, 'O', m_controls.orders->GetId());
  SetAcceleratorTable({1, &toOrders});
  Bind(
      wxEVT_MENU, [this](wxCommandEvent&) { m_controls.orders->SetFocus(); }, m_controls.orders->GetId());
  Bind(wxEVT_TIMER, [this](wxTimerEvent&) { PopUpIfWanted(); });
  m_controls.place->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { ShowState(); });
  m_controls.popUp->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Try([this] { PopUp(); }); });
  m_controls.remarks->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
    // The user was faster than the pop-up, which must be seen first.
    if (m_rested.IsRunning()) PopUpIfWanted();
    Try([this] { EditRemarks(); });
  });
  m_controls.manage->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Try([this] { Manage(); }); });
}

void SampleFrame::FillUsers(const wxString& chosenID) {
  m_controls.user->Clear();
  for (const User& user : m_data.users) {
    const int position = m_controls.user->Append(user.name.empty() ? user.id : user.id + "  (" + user.name + ")");
    if (position == 0 || user.id == chosenID) m_controls.user->SetSelection(position);
  }
}

void SampleFrame::FindCustomers() {
  std::vector<RecordList::Line> lines;
  for (const Customer& customer : m_data.customers) {
    if (IsFound(customer, m_controls.search->GetValue())) lines.push_back({customer.id, customer.name});
  }
  m_controls.customers->Fill(lines);
  ShowCustomer();
}

void SampleFrame::ShowCustomer() {
  m_rested.Stop();
  const Customer* customer = ChosenCustomer();
  std::vector<RecordList::Line> lines;
  if (customer != nullptr) {
    for (const Order& order : customer->orders) lines.push_back({order.id, order.date.FormatDate()});
  }
  m_controls.name->SetLabelText(customer == nullptr ? wxString() : customer->name);
  m_controls.orders->Fill(lines);
  ShowState();
}

void SampleFrame::ShowState() {
  const wxString owner = Owner();
  const bool canShow = !owner.empty() && m_controls.user->GetSelection() != wxNOT_FOUND;
  m_controls.popUp->Enable(canShow);
  m_controls.remarks->Enable(canShow);
  const wxString kind = Chosen(*m_controls.place).isForOrders ? "order" : "customer";
  SetStatusText(owner.empty() ? "No " + kind + " is chosen." : "Remarks of " + kind + " " + owner);
}

void SampleFrame::PopUpSoon() {
  if (m_controls.popsUp->GetValue()) m_rested.StartOnce(kRestMilliseconds);
}

void SampleFrame::PopUpIfWanted() {
  m_rested.Stop();
  if (m_controls.popsUp->GetValue() && m_controls.popUp->IsEnabled()) Try([this] { Remarks().PopUp(); });
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
  EditUntilSettled(remarks, [this](const ComponentError* failure) {
    return AskAboutUnsaved(*this, Chosen(*m_controls.place).caption, failure);
  });
}

void SampleFrame::Manage() {
  OpenAdministration();
  const wxString actingAs = m_controls.user->GetSelection() == wxNOT_FOUND ? wxString() : ActingAs().id;
  m_data.users = ReadBusinessData(ConnectionString()).users;
  FillUsers(actingAs);
  ShowState();
}

const User& SampleFrame::ActingAs() const {
  return m_data.users.at(static_cast<std::size_t>(m_controls.user->GetSelection()));
}

const Customer* SampleFrame::ChosenCustomer() const {
  const wxString id = m_controls.customers->ChosenID();
  const auto found = std::find_if(m_data.customers.begin(), m_data.customers.end(),
                                  [&](const Customer& customer) { return customer.id == id; });
  return found == m_data.customers.end() ? nullptr : &*found;
}

wxString SampleFrame::Owner() const {
  return Chosen(*m_controls.place).isForOrders ? m_controls.orders->ChosenID() : m_controls.customers->ChosenID();
}

OwnersRemarks SampleFrame::Remarks() const { return {Chosen(*m_controls.place).id, Owner(), ActingAs().id}; }

void SampleFrame::Try(const std::function<void()>& action) {
  m_rested.Stop();
  try {
    action();
  } catch (const ComponentError& error) {
    ShowFailure(this, Describe(error));
  } catch (const std::exception& error) {
    ShowFailure(this, wxString::FromUTF8(error.what()));
  }
}

}  // namespace sample
