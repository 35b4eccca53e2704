// Rows are fetched in blocks into buffers bound to the columns. A result with a long text, which has no buffer, is
// fetched row by row.

#include "ado/odbc/ResultReader.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <memory>
#include <optional>
#include <utility>

#include "ado/odbc/ColumnReader.h"

namespace quorvel::ado::odbc {
namespace {

/// Bytes and most rows of a block. Most results are small, so larger blocks would only cost memory.
constexpr std::size_t kBlockBytes = std::size_t{128} * 1024;
constexpr std::size_t kMostRows = 256;

class BlockReader {
 public:
  BlockReader(Statement& statement, SQLUSMALLINT columnCount) : m_statement(statement) {
    for (SQLUSMALLINT number = 1; number <= columnCount; ++number) m_columns.emplace_back(statement, number);
    BindColumns();
  }

  RowSet ReadAll() {
    std::vector<Column> columns;
    for (const ColumnReader& column : m_columns) columns.push_back(column.Description());
    RowSet rows(std::move(columns));
    // A block that is not full is the last one. Fetching again would lose the messages that follow the rows.
    bool isFull = true;
    while (isFull && m_statement.Call(api::Fetch) != SQL_NO_DATA) {
      AppendBlock(rows);
      isFull = m_fetched >= m_blockRows;
    }
    return rows;
  }

 private:
  /// Binds the columns before the first long one, and those after it when the driver reads columns in any order. With
  /// an unbound column rows come one by one: ODBC has no portable way to its cells in a block.
  void BindColumns() {
    const auto firstLong = std::find_if(m_columns.begin(), m_columns.end(), IsLong);
    const bool readsAnyColumn = m_statement.Connection().ReadsAnyColumn();
    m_blockRows = firstLong == m_columns.end() ? RowsPerBlock() : 1;
    m_status.resize(m_blockRows);
    m_statement.SetAttribute(SQL_ATTR_ROW_ARRAY_SIZE, AsPointer(SQLULEN{m_blockRows}), SQL_IS_UINTEGER);
    m_statement.SetAttribute(SQL_ATTR_ROW_STATUS_PTR, m_status.data());
    m_statement.SetAttribute(SQL_ATTR_ROWS_FETCHED_PTR, &m_fetched);
    for (auto column = m_columns.begin(); column != m_columns.end(); ++column) {
      if (!IsLong(*column) && (readsAnyColumn || column < firstLong)) column->Bind(m_blockRows);
    }
  }

  [[nodiscard]] std::size_t RowsPerBlock() const {
    std::size_t rowBytes = 0;
    for (const ColumnReader& column : m_columns) rowBytes += column.Width() + sizeof(SQLLEN);
    return std::clamp<std::size_t>(kBlockBytes / std::max<std::size_t>(rowBytes, 1), 1, kMostRows);
  }

  void AppendBlock(RowSet& rows) {
    for (std::size_t row = 0; row < std::min<std::size_t>(m_fetched, m_blockRows); ++row) {
      // ODBC reports a block as a success even when some of its rows failed.
      if (m_status[row] == SQL_ROW_ERROR) m_statement.Fail(api::Fetch.Name());
      if (m_status[row] == SQL_ROW_NOROW) break;
      for (ColumnReader& column : m_columns) column.AppendTo(rows, row);
    }
  }

  static bool IsLong(const ColumnReader& column) { return column.Width() == 0; }

  Statement& m_statement;
  std::deque<ColumnReader> m_columns;
  std::size_t m_blockRows = 1;
  std::vector<SQLUSMALLINT> m_status;
  SQLULEN m_fetched = 0;
};

SQLUSMALLINT CountColumns(Statement& statement) {
  SQLSMALLINT count = 0;
  statement.Call(api::NumResultCols, &count);
  return static_cast<SQLUSMALLINT>(std::max<SQLSMALLINT>(count, 0));
}

/// Not after a lost connection, a timeout or a failure without a reason.
bool MayGoOnAfter(const Diagnostic& failure) {
  return failure.nativeError != 0 && !failure.sqlState.starts_with("08") && !failure.sqlState.starts_with("HYT");
}

/// Takes one step through the results and adds a failure to `failures`; false when no further step is possible.
template <typename Step>
bool Try(const Step& step, std::vector<Diagnostic>& failures) {
  // A driver that repeats a failure endlessly must not block the caller.
  constexpr std::size_t kMostRecords = 1000;
  try {
    return step();
  } catch (const DriverError& failure) {
    std::copy_if(failure.Records().begin(), failure.Records().end(), std::back_inserter(failures),
                 [&failures](const Diagnostic& record) { return failures.empty() || !IsMadeUp(record); });
    return MayGoOnAfter(failure.Records().front()) && failures.size() < kMostRecords;
  }
}

/// Walks over the results of an executed statement.
class ResultWalk {
 public:
  enum class Separators { None, BetweenCalls };

  ResultWalk(Statement& statement, Separators separators)
      : m_statement(statement), m_hasSeparators(separators == Separators::BetweenCalls) {}

  /// The outcome of the results up to the next separator or to the end.
  Outcome Next() {
    Result result;
    std::vector<Diagnostic> failures;
    const auto read = [&] { return Read(!result.rows && failures.empty(), result.rows); };
    m_isAtSeparator = false;
    while (Try(read, failures) && Try([this] { return Advance(); }, failures)) continue;
    result.messages = m_statement.TakeMessages();
    if (failures.empty()) return result;
    std::move(result.messages.begin(), result.messages.end(), std::back_inserter(failures));
    return DriverError(std::move(failures));
  }

  [[nodiscard]] bool IsAtSeparator() const noexcept { return m_isAtSeparator; }

 private:
  /// Reads the current result set into `rows` when it is wanted; false at a separator.
  bool Read(bool isWanted, std::optional<RowSet>& rows) {
    if (!std::exchange(m_isAtResult, false) || (!isWanted && !m_hasSeparators)) return true;
    const SQLUSMALLINT columns = CountColumns(m_statement);
    m_isAtSeparator = m_hasSeparators && columns == 1 && ColumnReader(m_statement, 1).Description().name == kEndOfCall;
    if (columns == 0 || m_isAtSeparator || !isWanted) return !m_isAtSeparator;
    // The columns of the call before are still bound.
    if (std::exchange(m_hasRead, true)) m_statement.Call(api::FreeStmt, SQLUSMALLINT{SQL_UNBIND});
    rows = ReadRows(m_statement);
    return true;
  }

  bool Advance() {
    m_isAtResult = m_statement.Call(api::MoreResults) != SQL_NO_DATA;
    return m_isAtResult;
  }

  Statement& m_statement;
  bool m_hasSeparators;
  bool m_isAtResult = true;  ///< not behind a failure or a separator, where there are no columns to ask for
  bool m_isAtSeparator = false;
  bool m_hasRead = false;
};

}  // namespace

RowSet ReadRows(Statement& statement) {
  const auto reader = std::make_shared<BlockReader>(statement, CountColumns(statement));
  statement.Keep(reader);
  return reader->ReadAll();
}

Result ReadResults(Statement& statement) {
  Outcome outcome = ResultWalk(statement, ResultWalk::Separators::None).Next();
  if (const auto* failure = std::get_if<DriverError>(&outcome)) throw DriverError(*failure);
  return std::get<Result>(std::move(outcome));
}

std::vector<Outcome> ReadOutcomes(Statement& statement, std::size_t count) {
  ResultWalk walk(statement, ResultWalk::Separators::BetweenCalls);
  std::vector<Outcome> outcomes;
  do {
    outcomes.push_back(walk.Next());
  } while (walk.IsAtSeparator() && outcomes.size() < count);
  const bool isKnown = outcomes.size() == count || std::holds_alternative<DriverError>(outcomes.back());
  if (!isKnown) outcomes.pop_back();
  return outcomes;
}

}  // namespace quorvel::ado::odbc
