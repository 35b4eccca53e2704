#pragma once

#include <vector>

#include <wx/dataview.h>

namespace sample {

/// A list of records, one a line, that the user picks one of.
class RecordList : public wxDataViewListCtrl {
 public:
  struct Line {
    wxString id;
    wxString text;
  };

  RecordList(wxWindow* parent, const wxString& idCaption, const wxString& textCaption);

  /// Shows other lines; the first is chosen.
  void Fill(const std::vector<Line>& lines);
  /// The record that is chosen; empty when there is none.
  [[nodiscard]] wxString ChosenID() const;
};

}  // namespace sample
