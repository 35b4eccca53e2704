#pragma once

#include <string>

#include "ado/embedded/SqlType.h"

namespace quorvel::ado::embedded {

/// A column of CREATE TABLE.
struct ColumnDefinition {
  std::string name;
  SqlType type;
  bool isNotNull = false;
  bool isIdentity = false;
  bool isPrimaryKey = false;
  bool isUnique = false;
  std::string clauses;  ///< DEFAULT, REFERENCES and CHECK, in SQLite's SQL

  /// The column in SQLite's SQL. `isSoleKey`: it is the table's primary key and can be SQLite's row number.
  [[nodiscard]] std::string Sql(bool isSoleKey) const;
};

}  // namespace quorvel::ado::embedded
