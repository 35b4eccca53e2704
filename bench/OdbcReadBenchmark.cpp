// Reads 10,000 memos through SQLite's ODBC driver, with the component and with hand-written ODBC calls.

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <sql.h>
#include <sqlext.h>

#include <array>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "ado/Connection.h"
#include "bench/BenchDatabase.h"

namespace quorvel::bench {
namespace {

constexpr const char* kRead = "SELECT MemoType, MemoKey, DateStamp, UserID, MemoText FROM Memo";

/// 10,000 memos of about 100 characters in a file that both sides read through SQLite's ODBC driver.
std::string MemoFile() {
  static const std::string file = [] {
    std::string path = (std::filesystem::path(DatabaseFile()).parent_path() / "driver.db").string();
    auto connection = std::make_shared<ado::Connection>();
    connection->SetConnectionString("Data Source=file; Driver=SQLite3; Initial Catalog=" + path);
    connection->Open();
    connection->Execute(
        "CREATE TABLE Memo (MemoType varchar(30), MemoKey int, DateStamp timestamp, UserID varchar(30), MemoText "
        "text)");
    connection->Execute(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 10000) INSERT INTO Memo SELECT "
        "'Cust.General', i, '2024-05-06 07:08:09.123', 'jsmith', 'Remark ' || i || ': spoke to accounts payable, "
        "payment promised by the end of the week, call again on Monday.' FROM n");
    return path;
  }();
  return file;
}

void OdbcRead(benchmark::State& state) {
  auto connection = std::make_shared<ado::Connection>();
  connection->SetConnectionString("Data Source=file; Driver=SQLite3; Initial Catalog=" + MemoFile());
  connection->Open();
  for ([[maybe_unused]] auto _ : state) {
    if (connection->Execute(kRead)->RecordCount() != state.range(0)) state.SkipWithError("wrong number of memos");
  }
}

struct Memo {
  std::u16string type;
  std::int64_t key = 0;
  SQL_TIMESTAMP_STRUCT stamp{};
  std::u16string user;
  std::u16string text;
};

/// Hand-written code: every column bound, a block of rows for each fetch, the rows put into structs.
class BareOdbc {
 public:
  explicit BareOdbc(const std::string& file) {
    std::string text = "DRIVER={SQLite3};DATABASE=" + file;
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &m_environment);
    SQLSetEnvAttr(m_environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, m_environment, &m_connection);
    Check(SQLDriverConnect(m_connection, nullptr, reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS, nullptr, 0, nullptr,
                           SQL_DRIVER_NOPROMPT));
  }
  ~BareOdbc() {
    SQLDisconnect(m_connection);
    SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
    SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
  }
  BareOdbc(const BareOdbc&) = delete;
  BareOdbc& operator=(const BareOdbc&) = delete;

  std::vector<Memo> Read() {
    SQLHSTMT statement = SQL_NULL_HANDLE;
    SQLAllocHandle(SQL_HANDLE_STMT, m_connection, &statement);
    SQLULEN fetched = 0;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): ODBC takes small integers as pointers.
    SQLSetStmtAttr(statement, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(kRows), 0);
    SQLSetStmtAttr(statement, SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0);
    std::string query = kRead;
    Check(SQLExecDirect(statement, reinterpret_cast<SQLCHAR*>(query.data()), SQL_NTS));
    Bind(statement, 1, SQL_C_WCHAR, m_types.data(), kShort);
    Bind(statement, 2, SQL_C_SBIGINT, m_keys.data(), sizeof(SQLBIGINT));
    Bind(statement, 3, SQL_C_TYPE_TIMESTAMP, m_stamps.data(), sizeof(SQL_TIMESTAMP_STRUCT));
    Bind(statement, 4, SQL_C_WCHAR, m_users.data(), kShort);
    Bind(statement, 5, SQL_C_WCHAR, m_texts.data(), kLong);
    std::vector<Memo> memos;
    while (SQL_SUCCEEDED(SQLFetch(statement))) Keep(fetched, memos);
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
    return memos;
  }

 private:
  static constexpr SQLULEN kRows = 256;
  static constexpr std::size_t kShort = 31 * sizeof(SQLWCHAR);
  static constexpr std::size_t kLong = 4001 * sizeof(SQLWCHAR);

  static void Check(SQLRETURN code) {
    if (!SQL_SUCCEEDED(code)) throw std::runtime_error("the driver refused");
  }
  void Bind(SQLHSTMT statement, SQLUSMALLINT number, SQLSMALLINT type, void* cells, std::size_t width) {
    SQLBindCol(statement, number, type, cells, static_cast<SQLLEN>(width), m_lengths.at(number - 1U).data());
  }
  [[nodiscard]] std::u16string Text(const std::vector<char>& cells, std::size_t width, std::size_t column,
                                    SQLULEN row) const {
    return {reinterpret_cast<const char16_t*>(cells.data() + row * width),
            static_cast<std::size_t>(m_lengths.at(column)[row]) / sizeof(SQLWCHAR)};
  }
  void Keep(SQLULEN fetched, std::vector<Memo>& memos) const {
    for (SQLULEN row = 0; row < fetched; ++row) {
      memos.push_back({Text(m_types, kShort, 0, row), m_keys[row], m_stamps[row], Text(m_users, kShort, 3, row),
                       Text(m_texts, kLong, 4, row)});
    }
  }

  SQLHENV m_environment = SQL_NULL_HANDLE;
  SQLHDBC m_connection = SQL_NULL_HANDLE;
  std::vector<char> m_types = std::vector<char>(kRows * kShort);
  std::vector<SQLBIGINT> m_keys = std::vector<SQLBIGINT>(kRows);
  std::vector<SQL_TIMESTAMP_STRUCT> m_stamps = std::vector<SQL_TIMESTAMP_STRUCT>(kRows);
  std::vector<char> m_users = std::vector<char>(kRows * kShort);
  std::vector<char> m_texts = std::vector<char>(kRows * kLong);
  std::array<std::vector<SQLLEN>, 5> m_lengths = {std::vector<SQLLEN>(kRows), std::vector<SQLLEN>(kRows),
                                                  std::vector<SQLLEN>(kRows), std::vector<SQLLEN>(kRows),
                                                  std::vector<SQLLEN>(kRows)};
};

void BareOdbcRead(benchmark::State& state) {
  BareOdbc bare(MemoFile());
  for ([[maybe_unused]] auto _ : state) {
    if (static_cast<std::int64_t>(bare.Read().size()) != state.range(0)) state.SkipWithError("wrong number of memos");
  }
}

BENCHMARK(OdbcRead)->Arg(10'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BareOdbcRead)->Arg(10'000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quorvel::bench
