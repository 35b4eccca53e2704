// The business data that the sample reads, and its rule for changes that are not saved.

#include <clocale>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/sample/BusinessData.h"
#include "host/sample/EditUntilSettled.h"
#include "tests/host/CommandLine.h"

namespace sample {
namespace {

using quorvel::test::CommandLine;
using ::testing::HasSubstr;
using ::testing::ThrowsMessage;

std::string Utf8(const wxString& text) { return std::string(text.utf8_str()); }

BusinessData ReadFrom(const std::string& file, const std::string& server = "(embedded)") {
  return ReadBusinessData(wxString::FromUTF8("Provider=SQLOLEDB.1;Data Source=" + server + "; Initial Catalog=" + file +
                                             "; User ID=; Password="));
}

using SampleData = CommandLine;

TEST_F(SampleData, ReadsTheFileOfTheSettings) {
  Initialize(true);
  RunSql("INSERT INTO SalesOrder (OrderKey, OrderID, CustKey, OrderDate) VALUES (99, 'SO10000', 45, '20231231')");
  RunSql("UPDATE ttwUser SET IsActive = 0 WHERE UserID = 'mjones'");
  const BusinessData data = ReadFrom(File("test.db"));

  ASSERT_EQ(data.customers.size(), 50U);
  const Customer& acme = data.customers.at(44);
  EXPECT_EQ(Utf8(acme.id + " " + acme.name), "C1044 Acme Tools");
  ASSERT_EQ(acme.orders.size(), 3U);
  EXPECT_EQ(Utf8(acme.orders.front().id + " " + acme.orders.front().date.FormatISODate()), "SO10000 2023-12-31");
  const Customer& foreign = data.customers.at(43);
  EXPECT_EQ(Utf8(foreign.name), "Søndergaard Møbler");
  ASSERT_EQ(data.users.size(), 3U);
  EXPECT_EQ(Utf8(data.users.front().name), "Jane Smith");
  EXPECT_EQ(Utf8(data.users.back().id + data.users.back().name), "guest");

  // Letter case outside ASCII needs a locale, as the program has one.
  ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
  EXPECT_TRUE(IsFound(foreign, wxString::FromUTF8(" MØB ")));
  EXPECT_TRUE(IsFound(foreign, "c104"));
  EXPECT_TRUE(IsFound(foreign, ""));
  EXPECT_FALSE(IsFound(foreign, "acme"));
}

TEST_F(SampleData, ReportsWhatIsMissing) {
  const auto refuses = [](const std::string& message) { return ThrowsMessage<std::runtime_error>(HasSubstr(message)); };
  EXPECT_THAT([] { (void)ReadFrom("Ledger", "SQL1"); }, refuses("the settings name the server \"SQL1\""));
  const std::string missing = File("none;of it.db");
  EXPECT_THAT([&] { (void)ReadFrom(missing); }, refuses("There is no database file \"" + missing + "\""));
  Initialize(false);
  EXPECT_THAT([&] { (void)ReadFrom(File("test.db")); },
              refuses("The customers cannot be read: no such table: Customer.\n\nquorvel init --sample"));

  // The advice is not to make the schema when the reason is another.
  std::ofstream(File("letter.txt")) << "Dear Mrs Smith, the delivery of last week has arrived.";
  EXPECT_THAT([&] { (void)ReadFrom(File("letter.txt")); }, refuses("file is not a database.\n\nThe file is something"));
  std::filesystem::remove(File("test.db-wal"));
  std::filesystem::create_directory(File("test.db-wal"));  // as where SQLite may not make its second file
  EXPECT_THAT([&] { (void)ReadFrom(File("test.db")); }, refuses("\n\nThis user must be able to write the file"));
}

/// Remarks of a place, with a database that refuses the first writes.
struct StandIn {
  bool placeSaves = true;
  int refusals = 0;
  bool isUnsaved = false;
  bool opens = true;
  std::vector<std::string> calls{};

  void Edit() {
    calls.emplace_back("edit");
    if (!opens) throw ComponentError{-1, "Quorvel", "No window can be opened"};
    isUnsaved = true;
    if (placeSaves) Write();
  }
  void Save() {
    calls.emplace_back("save");
    Write();
  }
  void Write() {
    if (refusals-- > 0) throw ComponentError{-2147217871, "Quorvel.Embedded", "Timeout expired"};
    isUnsaved = false;
  }
  [[nodiscard]] bool IsUnsaved() const { return isUnsaved; }
  [[nodiscard]] bool IsLeftToSave() const { return !placeSaves; }
};

/// Edits, answers the questions in turn, and returns what was done; a question is "failed?" or "save?".
std::vector<std::string> Edit(StandIn remarks, std::vector<UnsavedAnswer> answers) {
  EditUntilSettled(remarks, [&](const ComponentError* failure) {
    remarks.calls.emplace_back(failure != nullptr ? "failed?" : "save?");
    const UnsavedAnswer answer = answers.at(0);
    answers.erase(answers.begin());
    return answer;
  });
  EXPECT_TRUE(answers.empty());
  return remarks.calls;
}

TEST(SampleEdit, LosesNoChangeUnasked) {
  using Calls = std::vector<std::string>;
  using enum UnsavedAnswer;
  EXPECT_EQ(Edit({}, {}), Calls{"edit"});
  EXPECT_EQ(Edit({.placeSaves = false}, {Save}), (Calls{"edit", "save?", "save"}));
  EXPECT_EQ(Edit({.placeSaves = false}, {OpenAgain, ThrowAway}), (Calls{"edit", "save?", "edit", "save?"}));
  EXPECT_EQ(Edit({.refusals = 2}, {Save, Save}), (Calls{"edit", "failed?", "save", "failed?", "save"}));
  EXPECT_EQ(Edit({.placeSaves = false, .refusals = 1}, {Save, OpenAgain, Save}),
            (Calls{"edit", "save?", "save", "failed?", "edit", "save?", "save"}));
  EXPECT_THROW(Edit({.opens = false}, {}), ComponentError);  // nothing is at stake, so nothing is asked
}

}  // namespace
}  // namespace sample
