#include "host/cli/Table.h"

#include <algorithm>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "host/cli/TextLayout.h"
#include "platform/Text.h"

namespace quorvel::cli {
namespace {

struct Column {
  std::vector<std::string> cells;
  std::size_t width = 0;
  bool hasNumbers = false;
  bool hasOthers = false;
};

void Append(Column& column, std::string cell) {
  column.width = std::max(column.width, CountCharacters(cell));
  column.cells.push_back(std::move(cell));
}

void AppendValue(Column& column, const Value& value) {
  if (IsNull(value)) return Append(column, "NULL");
  const bool isNumber = std::holds_alternative<std::int64_t>(value) || std::holds_alternative<double>(value);
  (isNumber ? column.hasNumbers : column.hasOthers) = true;
  Append(column, OneLine(ToText(value)));
}

std::vector<Column> ReadColumns(ado::Recordset& rows) {
  std::vector<Column> columns(rows.FieldCount());
  for (std::size_t i = 0; i < columns.size(); ++i) Append(columns[i], OneLine(rows.Fields(i).Name()));
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    for (std::size_t i = 0; i < columns.size(); ++i) AppendValue(columns[i], rows.Fields(i).Value());
  }
  for (Column& column : columns) column.cells.insert(column.cells.begin() + 1, std::string(column.width, '-'));
  return columns;
}

std::string Line(const std::vector<Column>& columns, std::size_t row) {
  std::string line;
  for (const Column& column : columns) {
    const std::string& cell = column.cells[row];
    const std::string blanks(column.width - CountCharacters(cell), ' ');
    line += column.hasNumbers && !column.hasOthers ? blanks + cell : cell + blanks;
    line += "  ";
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

}  // namespace

void PrintTable(ado::Recordset& rows) {
  const std::vector<Column> columns = ReadColumns(rows);
  const std::size_t lines = columns.front().cells.size();
  for (std::size_t line = 0; line < lines; ++line) fmt::print("{}\n", Line(columns, line));
  constexpr std::size_t kHeading = 2;
  fmt::print("({})\n", Counted(lines - kHeading, "row"));
}

}  // namespace quorvel::cli
