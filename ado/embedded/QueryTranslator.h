#pragma once

#include <set>
#include <string>
#include <vector>

#include "ado/embedded/Program.h"
#include "ado/embedded/TokenCursor.h"

namespace quorvel::ado::embedded {

/// Turns T-SQL expressions and SELECTs at the cursor into SQLite's SQL. What differs and is done here: names and
/// quoting, how joins nest, TOP, text comparison without case, `+` on texts, functions, and variables.
///
/// One translator serves one statement: it collects the variables that the statement reads.
class QueryTranslator {
 public:
  QueryTranslator(TokenCursor& cursor, const std::vector<Variable>& variables)
      : m_cursor(cursor), m_variables(variables) {}

  enum class Kind { Unknown, Text, Number };
  /// A translated expression. `isColumn` when it is a bare column, which has a collation of its own.
  struct Expression {
    std::string sql;
    Kind kind = Kind::Unknown;
    bool isColumn = false;
    std::string chain = {};  ///< while operators are being strung together: their kind
  };

  /// One item of a select list.
  struct SelectItem {
    Expression expression;
    std::string alias;
    std::optional<std::size_t> target;  ///< the variable of `@v = expression`
  };
  /// A SELECT, cut so that INSERT can dress the items of its list.
  struct Select {
    std::string head;  ///< SELECT [DISTINCT]
    std::vector<SelectItem> items;
    std::string tail;  ///< from FROM on
    [[nodiscard]] std::string Sql() const;
    [[nodiscard]] std::vector<std::size_t> Targets() const;
  };

  [[nodiscard]] Expression ParseExpression();
  [[nodiscard]] Select ParseSelect();
  /// "WHERE condition", or nothing.
  [[nodiscard]] std::string ParseWhere();
  /// A table name with its hints.
  [[nodiscard]] std::string ParseTableName();

  /// The statement with the variables read so far.
  [[nodiscard]] Query Finish(std::string sql) const;
  [[nodiscard]] std::size_t FindVariable(const std::string& name) const;

 private:
  Expression ParseAnd();
  Expression ParseNot();
  Expression ParseComparison();
  Expression ParsePredicateTail(const Expression& left);
  Expression ParseSum();
  Expression ParseProduct();
  Expression ParseUnary();
  Expression ParsePrimary();
  Expression ParseVariable();
  Expression ParseBracketed();
  Expression ParseCase();
  Expression ParseName();
  Expression ParseFunction(const std::string& name);
  Expression ParseCast(bool typeFirst);
  Expression ParseObjectId();
  Expression ParseAggregate(const std::string& name);
  std::string ParseOver();
  std::vector<Expression> ParseArguments();
  std::string ParseExpressionList();

  Select ParseSelectCore();
  std::string ParseTop();
  SelectItem ParseSelectItem();
  std::string ParseAlias();
  std::string ParseFrom();
  std::string ParseTableSource();
  std::string ParseJoinTail(const std::string& left);
  std::string ParseTablePrimary();
  std::string ParseOrderBy();
  [[nodiscard]] bool IsJoin() const;
  void SkipHints();

  TokenCursor& m_cursor;
  const std::vector<Variable>& m_variables;
  std::set<std::size_t> m_used;
};

}  // namespace quorvel::ado::embedded
