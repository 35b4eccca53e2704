#include "host/sample/SampleControls.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "host/sample/Places.h"
#include "host/sample/RecordList.h"

namespace sample {
namespace {

// Access key and accessible name of a label belong to the control that is created next.
wxStaticText* Label(wxWindow& panel, const char* text) { return new wxStaticText(&panel, wxID_ANY, text); }

}  // namespace

SampleControls::SampleControls(wxWindow& panel) {
  const int gap = panel.FromDIP(12);
  auto* head = MakeHead(panel);
  auto* lists = new wxBoxSizer(wxHORIZONTAL);
  lists->Add(MakeCustomers(panel), wxSizerFlags(3).Expand());
  lists->Add(MakeOrders(panel), wxSizerFlags(2).Expand().Border(wxLEFT, gap));
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(head, wxSizerFlags().Expand().Border(wxALL, gap));
  all->Add(lists, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, gap));
  all->Add(MakeButtons(panel), wxSizerFlags().Expand().Border(wxALL, gap));
  panel.SetSizer(all);
}

wxSizer* SampleControls::MakeHead(wxWindow& panel) {
  auto* userLabel = Label(panel, "&Acting as");
  user = new wxChoice(&panel, wxID_ANY);
  auto* placeLabel = Label(panel, "&Working in");
  place = new wxChoice(&panel, wxID_ANY);
  for (const Place& each : kPlaces) place->Append(each.caption);
  place->SetSelection(0);

  const int gap = panel.FromDIP(6);
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(userLabel, wxSizerFlags().CentreVertical());
  row->Add(user, wxSizerFlags(1).CentreVertical().Border(wxLEFT, gap));
  row->Add(placeLabel, wxSizerFlags().CentreVertical().Border(wxLEFT, 4 * gap));
  row->Add(place, wxSizerFlags(1).CentreVertical().Border(wxLEFT, gap));
  return row;
}

wxSizer* SampleControls::MakeCustomers(wxWindow& panel) {
  auto* searchLabel = Label(panel, "&Find");
  search = new wxTextCtrl(&panel, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER);
  search->SetHint("Part of a name or number");
  // The toolkit measures a field as if its font were not larger.
  search->SetMinSize({-1, search->GetCharHeight() + panel.FromDIP(12)});
  customers = new RecordList(&panel, "Customer", "Name");
  customers->SetMinSize({30 * panel.GetCharWidth(), 10 * panel.GetCharHeight()});

  const int gap = panel.FromDIP(6);
  auto* find = new wxBoxSizer(wxHORIZONTAL);
  find->Add(searchLabel, wxSizerFlags().CentreVertical());
  find->Add(search, wxSizerFlags(1).CentreVertical().Border(wxLEFT, gap));
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(find, wxSizerFlags().Expand());
  column->Add(customers, wxSizerFlags(1).Expand().Border(wxTOP, gap));
  return column;
}

wxSizer* SampleControls::MakeOrders(wxWindow& panel) {
  name = new wxStaticText(&panel, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxST_ELLIPSIZE_END);
  name->SetFont(name->GetFont().Bold().Larger());
  auto* ordersLabel = Label(panel, "&Orders");
  orders = new RecordList(&panel, "Order", "Date");
  orders->SetMinSize({20 * panel.GetCharWidth(), 6 * panel.GetCharHeight()});

  const int gap = panel.FromDIP(6);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(name, wxSizerFlags().Expand().Border(wxTOP, gap));
  column->Add(ordersLabel, wxSizerFlags().Border(wxTOP, gap));
  column->Add(orders, wxSizerFlags(1).Expand().Border(wxTOP, gap));
  return column;
}

wxSizer* SampleControls::MakeButtons(wxWindow& panel) {
  popsUp = new wxCheckBox(&panel, wxID_ANY, "&Show at once what must be seen");
  popsUp->SetValue(true);
  popUp = new wxButton(&panel, wxID_ANY, "&Pop-up");
  remarks = new wxButton(&panel, wxID_ANY, "&Remarks");
  manage = new wxButton(&panel, wxID_ANY, "&Manage");

  const int gap = panel.FromDIP(6);
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(popsUp, wxSizerFlags(1).CentreVertical());
  for (wxButton* button : {popUp, remarks, manage}) row->Add(button, wxSizerFlags().Border(wxLEFT, gap));
  return row;
}

}  // namespace sample
