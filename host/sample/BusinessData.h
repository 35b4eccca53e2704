#pragma once

#include <vector>

#include <wx/datetime.h>
#include <wx/string.h>

namespace sample {

struct Order {
  wxString id;
  wxDateTime date;
};

struct Customer {
  wxString id;
  wxString name;
  std::vector<Order> orders;
};

/// Somebody to act as.
struct User {
  wxString id;
  wxString name;
};

/// The business's own records, read once.
struct BusinessData {
  std::vector<Customer> customers;
  std::vector<User> users;
};

/// Reads what the sample's database file holds, in the order of the IDs, and changes nothing. `connectionString` is the
/// component's: the business keeps its records where its remarks are. std::runtime_error says in plain words what is
/// wrong: the settings name no file, there is none, or it holds no sample data.
[[nodiscard]] BusinessData ReadBusinessData(const wxString& connectionString);

/// Whether a customer is meant by what somebody typed: any part of ID or name, in any letter case.
[[nodiscard]] bool IsFound(const Customer& customer, const wxString& typed);

}  // namespace sample
