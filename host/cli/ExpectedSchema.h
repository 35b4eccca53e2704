#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The objects of a database that the component uses. Both lists are read from the scripts that create and grant them,
/// in the order of the grants.
namespace quorvel::cli {

/// A table that the component reads with its own statements.
struct ExpectedTable {
  std::string name;
  std::vector<std::string> columns;
  std::vector<std::string> written;  ///< the columns that the component changes with UPDATE; may be empty
};

struct ExpectedProcedure {
  std::string name;
  std::string parameters;  ///< in order, such as "@iTableName, @oNewKey OUTPUT"
};

/// The host's table of memos. The component reaches it through procedures only, so its columns may have any names.
inline constexpr std::string_view kMemoTable = "tciMemo";
/// The table from which the product's own procedure numbers the memos.
inline constexpr std::string_view kKeyTable = "ttwSurrogateKey";
/// The table with the version of the layout. Only `init` and `doctor` read it, and older databases have none.
inline constexpr std::string_view kLayoutTable = "ttwLayout";

[[nodiscard]] const std::vector<ExpectedTable>& ExpectedTables();
[[nodiscard]] const std::vector<ExpectedProcedure>& ExpectedProcedures();

/// A table that only procedures use, as quorvel.sql makes it.
[[nodiscard]] ExpectedTable TableOfProcedures(std::string_view name);

/// The column as quorvel.sql defines it: "RowHeight int NOT NULL ...".
[[nodiscard]] std::string ColumnDefinition(std::string_view table, std::string_view column);

/// The version of the layout that quorvel.sql makes. It grows when a program of an older version would do harm to the
/// database of a newer one.
[[nodiscard]] int ExpectedLayoutVersion();

}  // namespace quorvel::cli
