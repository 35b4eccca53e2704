#include "ado/embedded/Clauses.h"

namespace quorvel::ado::embedded {

std::string ParseExpressionList(TokenCursor& cursor, StatementParts& parts) {
  std::string list = parts.ParseExpression().sql;
  while (cursor.Accept(",")) list += ", " + parts.ParseExpression().sql;
  return list;
}

std::string ParseWhere(TokenCursor& cursor, StatementParts& parts) {
  return cursor.Accept("WHERE") ? " WHERE " + parts.ParseExpression().sql : std::string();
}

std::string ParseOrderBy(TokenCursor& cursor, StatementParts& parts) {
  cursor.Expect("ORDER");
  cursor.Expect("BY");
  std::string sql = "ORDER BY ";
  do {
    if (!sql.ends_with(' ')) sql += ", ";
    sql += Collated(parts.ParseExpression());
    if (cursor.Accept("DESC")) {
      sql += " DESC";
    } else {
      cursor.Accept("ASC");
    }
  } while (cursor.Accept(","));
  return sql;
}

std::string ParseAlias(TokenCursor& cursor) {
  if (cursor.Accept("AS")) {
    return cursor.Peek().kind == TokenKind::Text ? cursor.Take().text : cursor.ExpectName();
  }
  return cursor.IsName() ? cursor.ExpectName() : std::string();
}

std::string ParseTableName(TokenCursor& cursor) {
  std::string name = cursor.ExpectObjectName();
  SkipTableHints(cursor);
  return name;
}

void SkipTableHints(TokenCursor& cursor) {
  if (!cursor.AcceptAll({"WITH", "("})) return;
  while (!cursor.Accept(")")) {
    if (cursor.AtEnd()) cursor.Fail();
    cursor.Take();
  }
}

}  // namespace quorvel::ado::embedded
