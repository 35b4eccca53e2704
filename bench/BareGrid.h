#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <wx/grid.h>

#include "platform/DateTime.h"

namespace quorvel::bench {

struct BareRemark {
  std::int32_t key = 0;
  std::string type;
  DateTime date;
  std::string user;
  std::string text;
};

/// The rows of an editor shown with hand-written code: structs, an index over them, and the toolkit's grid, which asks
/// a table for each cell's text. Headings of groups are ordinary lines; nothing closes, wraps or has a colour.
class BareTable : public wxGridTableBase {
 public:
  explicit BareTable(const std::vector<BareRemark>& remarks) : m_remarks(remarks) {}

  int GetNumberRows() override { return static_cast<int>(m_lines.size()); }
  int GetNumberCols() override { return 3; }
  wxString GetValue(int row, int column) override;
  void SetValue(int /*row*/, int /*column*/, const wxString& /*value*/) override {}

  /// Orders the lines: by type if they are grouped, then by text or by date, the newest first.
  void Arrange(bool isGrouped, bool isByText);

 private:
  struct Heading {
    std::int32_t first;  ///< index of its first remark
    std::int32_t count;
  };
  const std::vector<BareRemark>& m_remarks;
  std::vector<std::int32_t> m_lines;  ///< index of a remark, or -1 minus the index of a heading
  std::vector<Heading> m_headings;
};

/// Gives `table` to the grid, which keeps it, and sets the grid's columns.
void ShowTable(wxGrid& grid, BareTable& table);

}  // namespace quorvel::bench
