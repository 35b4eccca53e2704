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

/// A user that the program can act as.
struct User {
  wxString id;
  wxString name;
};

/// The business's own records, read once.
struct BusinessData {
  wxString file;  ///< the database file
  std::vector<Customer> customers;
  std::vector<User> users;
};

/// Reads the sample's database file, in the order of the IDs, and changes nothing. `connectionString` is the
/// component's: the business keeps its records in the database of its remarks. std::runtime_error, with a text for the
/// user, when the settings name no file, the file does not exist, or it has no sample data.
[[nodiscard]] BusinessData ReadBusinessData(const wxString& connectionString);

/// Whether the ID or the name of a customer contains the typed text, in any letter case.
[[nodiscard]] bool IsFound(const Customer& customer, const wxString& typed);

}  // namespace sample
