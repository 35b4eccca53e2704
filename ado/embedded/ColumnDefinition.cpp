#include "ado/embedded/ColumnDefinition.h"

#include "ado/embedded/Quoting.h"
#include "ado/embedded/TypeRules.h"

namespace quorvel::ado::embedded {

std::string ColumnDefinition::Sql(bool isSoleKey) const {
  std::string sql = QuoteName(name) + " ";
  if (isSoleKey) {
    // Like IDENTITY, AUTOINCREMENT never gives a key twice.
    sql += isIdentity ? "INTEGER PRIMARY KEY AUTOINCREMENT" : "INTEGER PRIMARY KEY";
  } else {
    sql += type.declaration;
  }
  if (isNotNull) sql += " NOT NULL";
  if (isUnique) sql += " UNIQUE";
  if (IsTextType(type.type)) sql += " COLLATE NOCASE";
  return sql + clauses + TypeRule(name, type);
}

}  // namespace quorvel::ado::embedded
