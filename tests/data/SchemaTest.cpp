// The procedures of the schema on the sample data: rights, links, keys, and deletes in one transaction.

#include "data/Schema.h"

#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "ado/Script.h"
#include "data/modDatabase.h"
#include "platform/Error.h"
#include "tests/support/Caught.h"
#include "tests/support/Matchers.h"
#include "tests/support/Rows.h"
#include "tests/support/TestDatabase.h"

namespace quorvel::test {
namespace {

using modDatabase::ExecSP;
using modDatabase::NamedValue;

class SchemaTest : public testing::Test {
 protected:
  [[nodiscard]] std::int32_t Key(const std::string& table, const std::string& id) const {
    // ttwGroup, GroupKey, GroupID and so on.
    const std::string entity = table.substr(3);
    return ToInt32(m_database.Ask("SELECT " + entity + "Key FROM " + table + " WHERE " + entity + "ID = '" + id + "'"));
  }
  [[nodiscard]] std::string Count(const std::string& from) const {
    return m_database.Ask("SELECT COUNT(*) FROM " + from);
  }

  /// Every row of every table, as text.
  [[nodiscard]] std::string Dump() const;

  TestDatabase m_database;
};

constexpr const char* kTables[] = {"ttwBranch",       "ttwUser",       "ttwGroup",         "ttwGroupMember", "ttwRight",
                                   "ttwContext",      "ttwRemarkType", "ttwRemarkRight",   "tciMemo",        "Customer",
                                   "ttwRemarkEntity", "SalesOrder",    "ttwRemarkContext", "ttwSurrogateKey"};

std::string SchemaTest::Dump() const {
  std::string text;
  const auto connection = m_database.Connect();
  for (const char* table : kTables) {
    text += std::string(table) + "\n";
    for (const auto& row : RowsOf(*connection, std::string("SELECT * FROM ") + table)) text += row + "\n";
  }
  return text;
}

std::int32_t FailureOf(const std::string& procedure, std::initializer_list<NamedValue> pairs) {
  return Caught([&] { ExecSP(procedure, pairs); }).Number();
}

Value Number(std::int32_t number) { return std::int64_t{number}; }

TEST_F(SchemaTest, SecondRunOfTheScriptsChangesNothing) {
  ExecSP("spTWCAddUser", {{"@UserID", "later"}});
  ExecSP("spTWCqvDeleteRemark", {{"@MemoKey", Number(1)}});
  ExecSP("spTWCqvRemoveGroupMember", {{"@GroupKey", Number(1)}, {"@UserKey", Number(Key("ttwUser", "jsmith"))}});
  const std::string before = Dump();
  const auto connection = m_database.Connect();
  for (const std::string_view script : {SchemaScript(), SampleScript()}) RunScript(*connection, script);
  EXPECT_EQ(Dump(), before);
}

TEST_F(SchemaTest, SampleMemosHaveAnOwnerAUserAndAType) {
  EXPECT_EQ(Count("tciMemo m LEFT JOIN ttwUser u ON u.UserID = m.UserID LEFT JOIN ttwRemarkType t ON t.RemarkTypeID = "
                  "m.MemoType WHERE u.UserKey IS NULL OR t.RemarkTypeKey IS NULL"),
            "0");
  EXPECT_EQ(
      Count("tciMemo m WHERE NOT EXISTS (SELECT * FROM Customer WHERE CustKey = m.OwnerKey AND m.EntityType = 501)"
            " AND NOT EXISTS (SELECT * FROM SalesOrder WHERE OrderKey = m.OwnerKey AND m.EntityType = 801)"),
      "0");
}

TEST_F(SchemaTest, DeletesRemoveTheLinks) {
  const std::string memos = Count("tciMemo");
  ExecSP("spTWCAddRight", {{"@RightID", "ExportData"}});
  ExecSP("spTWCqvAddGroupRight",
         {{"@GroupKey", Number(Key("ttwGroup", "Collections"))}, {"@RightKey", Number(Key("ttwRight", "ExportData"))}});
  ExecSP("spTWCqvAddGroupRight", {{"@GroupKey", Number(1)}, {"@RightKey", Number(Key("ttwRight", "ExportData"))}});
  const std::tuple<std::string, std::string, std::vector<std::string>> cases[] = {
      {"User", "jsmith", {"ttwGroupMember"}},
      {"Group", "Collections", {"ttwRightAssignment", "ttwRemarkRight"}},
      {"Group", "Sales", {"ttwGroupMember", "ttwRemarkRight"}},
      {"Right", "ExportData", {"ttwRightAssignment"}},
      {"RemarkType", "Cust.AR.Coll", {"ttwRemarkRight", "ttwRemarkContext"}},
      {"Context", "CustInq", {"ttwRemarkContext"}}};
  for (const auto& [entity, id, links] : cases) {
    const std::string table = "ttw" + entity;
    const std::string column = entity + "Key";
    const std::int32_t key = Key(table, id);
    const std::string others = " WHERE " + column + " <> " + std::to_string(key);
    std::map<std::string, std::string> kept;
    for (const std::string& link : links) {
      kept[link] = Count(link + others);
      EXPECT_NE(Count(link), kept[link]) << link;
    }
    ExecSP("spTWCDelete" + entity, {{column, Number(key)}});
    EXPECT_EQ(Count(table), Count(table + others));
    for (const auto& [link, count] : kept) EXPECT_EQ(Count(link), count) << link << others;
  }
  ExecSP("spTWCDeleteRemarkEntity", {{"@RemarkEntityKey", Number(Key("ttwRemarkEntity", "Order"))}});
  EXPECT_EQ(Count("ttwRemarkEntity"), "1");
  EXPECT_EQ(Count("ttwRemarkType"), "3");
  EXPECT_EQ(Count("ttwContext"), "1");
  EXPECT_EQ(Count("tciMemo"), memos) << "memos belong to the host";
}

TEST_F(SchemaTest, RefusedDeletesRemoveNothing) {
  m_database.Run("CREATE TABLE HostTeam (GroupKey int NOT NULL REFERENCES ttwGroup (GroupKey))");
  m_database.Run("INSERT INTO HostTeam (GroupKey) SELECT GroupKey FROM ttwGroup WHERE GroupID = 'Sales'");
  const std::string before = Dump();
  EXPECT_EQ(FailureOf("spTWCDeleteGroup", {{"@GroupKey", Number(Key("ttwGroup", "Sales"))}}), ErrorNumber::DbIntegrity);
  EXPECT_EQ(Dump(), before);
}

TEST_F(SchemaTest, AddsTrimmedUniqueIDs) {
  const std::string longest(30, 'L');
  const Value entity = Number(Key("ttwRemarkEntity", "Order"));
  for (const std::string kind : {"User", "Group", "Right", "RemarkEntity", "RemarkType", "Context"}) {
    const std::string column = kind + "ID";
    const bool hasEntity = kind == "RemarkType" || kind == "Context";
    const auto add = [&](const std::string& id) {
      ExecSP("spTWCAdd" + kind, {{column, id}, {hasEntity ? "@RemarkEntityKey" : "", entity}});
    };
    add("New one ");
    EXPECT_EQ(Caught([&] { add("NEW ONE"); }).Number(), ErrorNumber::DbIntegrity) << kind;
    add(longest);
    EXPECT_EQ(Caught([&] { add(longest + "L"); }).Number(), ErrorNumber::AdoDataConversion) << kind;
    // LEN does not count trailing blanks, so the text ends with a point.
    std::string where = "ttw";
    where.append(kind).append(" WHERE LEN(").append(column).append(" + '.') = 8 AND ").append(column);
    EXPECT_EQ(Count(where.append(" = 'new one'")), "1");
  }
  // Columns that the administration has not set yet are empty and not NULL, so the new context loads.
  EXPECT_THAT(RowsOf(*m_database.Connect(), "EXEC spTWCqvGetContext 'New one'"),
              ElementsAre("|801|Sales Order|spGetOrderName|0|0|1|0"));
}

TEST_F(SchemaTest, LinksAreAddedOnceAndRemoved) {
  const Value group = Number(Key("ttwGroup", "Sales"));
  const Value user = Number(Key("ttwUser", "guest"));
  const Value type = Number(Key("ttwRemarkType", "Cust.Internal"));
  const Value context = Number(Key("ttwContext", "CustInq"));
  ExecSP("spTWCAddRight", {{"@RightID", "ExportData"}});
  const Value right = Number(Key("ttwRight", "ExportData"));
  const std::tuple<std::string, std::string, NamedValue, NamedValue> cases[] = {
      {"GroupMember", "ttwGroupMember", {"@GroupKey", group}, {"@UserKey", user}},
      {"GroupRight", "ttwRightAssignment", {"@RightKey", right}, {"@GroupKey", group}},
      {"RemarkRight", "ttwRemarkRight", {"@RemarkTypeKey", type}, {"@GroupKey", group}},
      {"RemarkContext", "ttwRemarkContext", {"@RemarkTypeKey", type}, {"@ContextKey", context}}};
  for (const auto& [kind, table, first, second] : cases) {
    const std::string before = Count(table);
    const std::string add = "spTWCqvAdd" + kind;
    ExecSP(add, {first, second});
    EXPECT_EQ(FailureOf(add, {first, second}), ErrorNumber::DbIntegrity) << add;
    EXPECT_EQ(FailureOf(add, {first, {second.first, Number(9999)}}), ErrorNumber::DbIntegrity) << add;
    EXPECT_EQ(Count(table), std::to_string(ToInt32(before) + 1)) << add;
    ExecSP("spTWCqvRemove" + kind, {first, second});
    EXPECT_EQ(Count(table), before) << kind;
  }
}

TEST_F(SchemaTest, UsersHaveTheHighestRightOfTheirGroups) {
  const auto rightsOf = [this](const std::string& user) {
    return RowsOf(*m_database.Connect(), "EXEC spTWCqvGetUserRights '" + user + "'");
  };
  EXPECT_THAT(rightsOf("mjones"), testing::UnorderedElementsAre("Cust.General|1|1|0|0", "Cust.Credit|1|1|1|0",
                                                                "Ord.Ship|1|1|1|1", "Ord.Note|1|1|1|0"));
  m_database.Run(
      "UPDATE ttwRemarkRight SET CanRead = 0, CanDelete = 1 WHERE GroupKey = 1 AND RemarkTypeKey = "
      "(SELECT RemarkTypeKey FROM ttwRemarkType WHERE RemarkTypeID = 'Cust.General') "
      "INSERT INTO ttwRemarkRight (GroupKey, RemarkTypeKey, CanRead, CanUpdate) SELECT g.GroupKey, t.RemarkTypeKey, 1, "
      "1 "
      "FROM ttwGroup g CROSS JOIN ttwRemarkType t WHERE g.GroupID = 'Sales' AND t.RemarkTypeID = 'Cust.General'");
  EXPECT_THAT(rightsOf("MJONES "), Contains("Cust.General|1|1|1|1"));
}

TEST_F(SchemaTest, ReadsMemosOfOneOwnerAndContext) {
  // The same owner key under another entity, and a type that the context does not show.
  m_database.Run("EXEC spTWCqvAddRemark 9001, 'Cust.General', 801, 45, 'of an order', 'admin'");
  m_database.Run("EXEC spTWCqvAddRemark 9002, 'No.Such.Type', 501, 45, 'of no type', 'admin'");
  const auto memos = [](const char* context, std::int32_t entity, std::int32_t owner) {
    return ExecSP("spTWCqvGetFilteredMemos",
                  {{"@ContextID", context}, {"@EntityType", Number(entity)}, {"@OwnerKey", Number(owner)}})
        ->RecordCount();
  };
  EXPECT_EQ(memos("CustMaint", 501, 45), 7);
  EXPECT_EQ(memos("CustInq", 501, 45), 5);
  EXPECT_EQ(memos("OrderEntry", 501, 45), 0);
  EXPECT_EQ(memos("CustMaint", 801, 45), 1);
}

TEST_F(SchemaTest, NoKeyIsReturnedTwice) {
  // The host may number memos itself; with the very next key or far ahead.
  m_database.Run("UPDATE tciMemo SET MemoKey = 2043 WHERE MemoKey = 2042");
  EXPECT_EQ(modDatabase::GetNextSurrogateKey("tciMemo"), 2044);
  m_database.Run("UPDATE tciMemo SET MemoKey = 5000 WHERE MemoKey = 2043");
  EXPECT_EQ(modDatabase::GetNextSurrogateKey("tciMemo"), 5001);
  m_database.Run("DELETE FROM tciMemo");
  EXPECT_EQ(modDatabase::GetNextSurrogateKey("TCIMEMO"), 5002);
  m_database.Run("INSERT INTO ttwSurrogateKey (TableName, LastKey) VALUES ('SalesOrder', 20)");
  EXPECT_EQ(modDatabase::GetNextSurrogateKey("SalesOrder"), 21);
  EXPECT_THROW((void)modDatabase::GetNextSurrogateKey("Customer"), Error) << "there is no counter for this table";
  EXPECT_EQ(modDatabase::GetNextSurrogateKey("tciMemo"), 5003);
  m_database.Run("UPDATE ttwSurrogateKey SET LastKey = 2147483647 WHERE TableName = 'SalesOrder'");
  EXPECT_THROW((void)modDatabase::GetNextSurrogateKey("SalesOrder"), Error);
  EXPECT_EQ(m_database.Ask("SELECT LastKey FROM ttwSurrogateKey WHERE TableName = 'SalesOrder'"), "2147483647");
}

// Only a SQL Server would show these faults: a row count that is returned as a result, and a transaction that an error
// leaves open.
TEST(SchemaScripts, ProceduresReturnNoCountsAndEndTheirTransactions) {
  std::size_t procedures = 0;
  for (const std::string_view script : {SchemaScript(), SampleScript()}) {
    for (const ado::Batch& batch : ado::SplitBatches(script)) {
      const std::string text(batch.text);
      if (text.find(" PROCEDURE ") == std::string::npos || text.find("AS Nothing") != std::string::npos) continue;
      ++procedures;
      EXPECT_THAT(text, HasSubstr("AS\nSET NOCOUNT ON\n"));
      if (text.find("BEGIN TRANSACTION") == std::string::npos) continue;
      EXPECT_LT(text.find("SET XACT_ABORT ON\n"), text.find("BEGIN TRANSACTION")) << text;
      EXPECT_EQ(text.find("ROLLBACK"), std::string::npos) << text;
    }
  }
  EXPECT_EQ(procedures, 30U);
}

}  // namespace
}  // namespace quorvel::test
