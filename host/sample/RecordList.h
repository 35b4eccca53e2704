#pragma once

#include <vector>

#include <wx/dataview.h>

namespace sample {

/// A list of records, one per line, from which the user chooses one.
class RecordList : public wxDataViewListCtrl {
 public:
  struct Line {
    wxString id;
    wxString text;
  };

  RecordList(wxWindow* parent, const wxString& idCaption, const wxString& textCaption);

  /// Replaces the lines and chooses the first.
  void Fill(const std::vector<Line>& lines);
  /// The ID of the chosen record; empty when there is none.
  [[nodiscard]] wxString ChosenID() const;
};

}  // namespace sample
