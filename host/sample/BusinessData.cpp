// The business reads its own tables with plain SQLite, as a host does that knows nothing of the component's inside.

#include "host/sample/BusinessData.h"

#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include <sqlite3.h>
#include <wx/filefn.h>

#include "host/sample/Advice.h"

namespace sample {
namespace {

struct Closer {
  void operator()(sqlite3* database) const noexcept { sqlite3_close(database); }
  void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};
using Database = std::unique_ptr<sqlite3, Closer>;
using Statement = std::unique_ptr<sqlite3_stmt, Closer>;

[[noreturn]] void Fail(const wxString& text) { throw std::runtime_error(std::string(text.utf8_str())); }

[[noreturn]] void FailWithAdvice(const wxString& text, int result) {
  const wxString advice = AdviceOnFile(result);
  Fail(advice.empty() ? text : text + "\n\n" + advice);
}

/// The value of `name` in the connection string. It may contain semicolons, so it ends where `next` begins.
wxString Setting(const wxString& connectionString, const wxString& name, const wxString& next) {
  const auto start = connectionString.find(name);
  const auto end = connectionString.rfind(next);
  if (start == wxString::npos || end == wxString::npos) return {};
  return connectionString.substr(start + name.length(), end - start - name.length());
}

wxString FileOf(const wxString& connectionString) {
  const wxString server = Setting(connectionString, "Data Source=", "; Initial Catalog=");
  if (server.CmpNoCase("(embedded)") != 0) {
    Fail("This sample reads its customers from a database file, but the settings name the server \"" + server +
         "\".\n\nquorvel settings 'Server=(embedded)' Database=FILE names a file.");
  }
  return Setting(connectionString, "Initial Catalog=", "; User ID=");
}

Database Open(const wxString& file) {
  if (!wxFileExists(file)) {
    Fail("There is no database file \"" + file + "\".\n\nquorvel init --sample makes it, customers included.");
  }
  sqlite3* handle = nullptr;
  const int result = sqlite3_open_v2(file.utf8_str(), &handle, SQLITE_OPEN_READONLY, nullptr);
  Database database(handle);
  if (result != SQLITE_OK) FailWithAdvice("\"" + file + "\" cannot be opened: " + sqlite3_errstr(result) + ".", result);
  sqlite3_busy_timeout(database.get(), 5000);
  return database;
}

wxString Text(sqlite3_stmt* row, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
  return text == nullptr ? wxString() : wxString::FromUTF8(text);
}

/// Runs a query and calls `take` with every row.
template <typename Take>
void ForEachRow(const Database& database, const char* query, Take take) {
  sqlite3_stmt* handle = nullptr;
  int result = sqlite3_prepare_v2(database.get(), query, -1, &handle, nullptr);
  const Statement statement(handle);
  if (result == SQLITE_OK) {
    while ((result = sqlite3_step(handle)) == SQLITE_ROW) take(handle);
  }
  if (result != SQLITE_DONE) {
    FailWithAdvice("The customers cannot be read: " + wxString::FromUTF8(sqlite3_errmsg(database.get())) + ".", result);
  }
}

wxDateTime Date(const wxString& text) {
  wxDateTime date;
  wxString::const_iterator end;
  date.ParseFormat(text, "%Y-%m-%d", &end);
  return date;
}

std::vector<Customer> ReadCustomers(const Database& database) {
  std::vector<Customer> customers;
  std::map<int, std::size_t> positions;
  ForEachRow(database, "SELECT CustKey, CustID, CustName FROM Customer ORDER BY CustID COLLATE BINARY",
             [&](sqlite3_stmt* row) {
               positions[sqlite3_column_int(row, 0)] = customers.size();
               customers.push_back({Text(row, 1), Text(row, 2), {}});
             });
  ForEachRow(database, "SELECT CustKey, OrderID, OrderDate FROM SalesOrder ORDER BY OrderID COLLATE BINARY",
             [&](sqlite3_stmt* row) {
               const auto position = positions.find(sqlite3_column_int(row, 0));
               if (position == positions.end()) return;
               customers[position->second].orders.push_back({Text(row, 1), Date(Text(row, 2))});
             });
  return customers;
}

std::vector<User> ReadUsers(const Database& database) {
  std::vector<User> users;
  ForEachRow(database, "SELECT UserID, FirstName, LastName FROM ttwUser WHERE IsActive <> 0 ORDER BY UserKey",
             [&](sqlite3_stmt* row) {
               const wxString name = Text(row, 1) + " " + Text(row, 2);
               users.push_back({Text(row, 0), wxString(name).Trim(false).Trim()});
             });
  return users;
}

}  // namespace

BusinessData ReadBusinessData(const wxString& connectionString) {
  BusinessData data;
  data.file = FileOf(connectionString);
  const Database database = Open(data.file);
  data.customers = ReadCustomers(database);
  data.users = ReadUsers(database);
  return data;
}

bool IsFound(const Customer& customer, const wxString& typed) {
  const wxString wanted = wxString(typed).Trim(false).Trim().Lower();
  return customer.id.Lower().Contains(wanted) || customer.name.Lower().Contains(wanted);
}

}  // namespace sample
