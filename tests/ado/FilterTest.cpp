// ADO filter criteria in two tables: those that select rows, and those that are refused.

#include "ado/Filter.h"

#include "platform/Error.h"
#include "tests/support/Caught.h"
#include "tests/support/Matchers.h"

namespace quorvel::ado {
namespace {

using namespace test;

RowSet People() {
  RowSet rows({{"UserKey", DataType::Integer},
               {"UserID", DataType::VarChar},
               {"Odd Name", DataType::VarChar},
               {"Since", DataType::DBTimeStamp},
               {"Score", DataType::Double},
               {"Any", DataType::Empty}});
  const auto append = [&rows](std::int64_t key, std::string_view id, const char* odd, const char* since, double score) {
    rows.AppendInteger(key);
    rows.AppendText(id);
    odd != nullptr ? rows.AppendText(odd) : rows.AppendNull();
    rows.AppendDateTime(ParseDateTime(since).value());
    rows.AppendReal(score);
    score > 1 ? rows.AppendInteger(key) : rows.AppendText(id);
  };
  append(7, "Anna", "x", "2001-02-03 04:05:06", 1.5);
  append(-12, "BERT  ", nullptr, "1999-12-31", 0.25);
  append(9007199254740993, "O'Brien", "", "2001-02-03", 1e3);
  append(8, "Ärger", "50*", "2010-01-01", -2);
  return rows;
}

TEST(Filter, SelectsTheRowsThatMeetTheCriteria) {
  const RowSet rows = People();
  const std::vector<std::pair<std::string_view, std::vector<std::uint32_t>>> cases = {
      {"UserID='anna'", {0}},
      {"userid = 'bert '", {1}},
      {"UserID=' bert'", {}},
      {"UserID='o''brien'", {2}},
      {"UserID='ärger'", {3}},
      {"UserID > 'Bert' AND UserID < 'P'", {2}},
      {"UserKey=' 7 '", {0}},
      {"UserKey=7.5", {}},
      {"UserKey<=7", {0, 1}},
      {"UserKey=9007199254740993", {2}},
      {"UserKey=9007199254740992", {}},
      {"Score>=1.5", {0, 2}},
      {"Since=#2001-02-03#", {2}},
      {"Since>=#2001-02-03 04:05:06#", {0, 3}},
      {"Since<'2000-01-01'", {1}},
      {"[Odd Name]=''", {2}},
      {"[Odd Name]<>'x'", {2, 3}},
      {"[Odd Name]=NULL", {1}},
      {"[Odd Name]<>null", {0, 2, 3}},
      {"Any=7", {0}},
      {"Any='bert'", {1}},
      {"UserID LIKE 'an*'", {0}},
      {"UserID LIKE '%RT'", {1}},
      {"UserID like '*R*'", {1, 2, 3}},
      {"UserID LIKE 'ann'", {}},
      {"[Odd Name] LIKE '*'", {0, 2, 3}},
      {"UserKey=7 OR UserKey=8 AND UserID='nobody'", {0}},
      {"((UserKey=7 OR UserKey=8)) AND Score<0", {3}},
      {"UserKey=7OR UserID='bert'or Score=-2", {0, 1, 3}},
  };
  for (const auto& [criteria, expected] : cases) {
    EXPECT_THAT(SelectRows(rows, criteria), testing::ElementsAreArray(expected)) << criteria;
  }
}

TEST(Filter, RefusesCriteriaThatCannotBeRead) {
  const RowSet rows = People();
  const std::string deep(100000, '(');
  const std::vector<const char*> incomplete = {" ", "UserID", "UserID=", "='x'", "UserID='x' AND", "[]='x'"};
  const std::vector<const char*> unbalanced = {"UserID='O'Brien'", "UserID='x",   "(UserID='x'",
                                               "UserID='x')",      "[UserID='x'", deep.c_str()};
  const std::vector<const char*> misspelt = {"UserID=x", "UserID=='x'", "UserID='x' UserKey=7",
                                             "UserID='x'; DROP TABLE x"};
  const std::vector<const char*> mismatched = {
      "UserKey='seven'",   "UserKey=''",  "UserKey=1e999",       "UserKey LIKE '7*'", "UserID LIKE 7",
      "UserID LIKE 'a*b'", "UserID>NULL", "UserID=#2001-01-01#", "Since='soon'",      "Since=#soon#"};
  for (const auto& all : {incomplete, unbalanced, misspelt, mismatched}) {
    for (const std::string_view criteria : all) {
      EXPECT_THAT(Caught([&] { (void)SelectRows(rows, criteria); }), HasNumber(ErrorNumber::AdoInvalidArgument))
          << criteria.substr(0, 50);
    }
  }
  EXPECT_THAT(Caught([&] { (void)SelectRows(rows, "ä='x'"); }),
              IsError(ErrorNumber::AdoItemNotFound, HasSubstr("\"ä\"")));
}

}  // namespace
}  // namespace quorvel::ado
