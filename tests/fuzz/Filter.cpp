// Criteria of a filter, on a few rows with a column of each type.

#include <algorithm>
#include <string>
#include <vector>

#include "ado/Filter.h"
#include "platform/Error.h"
#include "tests/fuzz/Fuzz.h"

namespace quorvel::fuzz {
namespace {

using ado::DataType;

ado::RowSet MakeRows() {
  ado::RowSet rows({{"Key", DataType::Integer},
                    {"ID", DataType::VarWChar},
                    {"Odd Name", DataType::Boolean},
                    {"Since", DataType::DBTimeStamp},
                    {"Score", DataType::Double},
                    {"Any", DataType::Empty}});
  for (const std::string text : {"anna", "O'Brien ", "Ärger*", "\xFF"}) {
    rows.AppendInteger(static_cast<std::int64_t>(text.size()) - 6);
    rows.AppendText(text);
    rows.AppendBoolean(text.size() > 5);
    rows.AppendDateTime(kZeroDate + std::chrono::days(text.size() * 9000));
    rows.AppendReal(0.5 * static_cast<double>(text.size()));
    text.size() > 5 ? rows.AppendText(text) : rows.AppendInteger(7);
  }
  for (int column = 0; column < 6; ++column) rows.AppendNull();
  return rows;
}

std::vector<std::uint32_t> Select(const std::string& criteria) {
  static const ado::RowSet rows = MakeRows();
  return SelectRows(rows, criteria);
}

}  // namespace

void Try(std::string_view input) {
  const std::string criteria(input);
  std::vector<std::uint32_t> selected;
  try {
    selected = Select(criteria);
  } catch (const Error& error) {
    const bool isExpected =
        error.Number() == ErrorNumber::AdoInvalidArgument || error.Number() == ErrorNumber::AdoItemNotFound;
    Require(isExpected && !error.Description().empty(), "an error is that of wrong criteria and has a text");
    return;
  }
  Require(std::ranges::is_sorted(selected) && (selected.empty() || selected.back() < 5), "rows are in order");
  if (std::ranges::count(criteria, '(') > 90) return;  // one more bracket may be too many
  Require(Select("(" + criteria + ") OR Key = 99") == selected, "brackets keep the meaning");
  Require(Select("Key <> 99 AND Key = 99 AND (" + criteria + ")").empty(), "AND narrows");
}

}  // namespace quorvel::fuzz
