// New and deleted records, fields and links: the common part of the six views.

#include <iterator>
#include <string>

#include "data/modUserName.h"
#include "tests/admin/AdminTest.h"

namespace quorvel::test {
namespace {

INSTANTIATE_TEST_SUITE_P(Engines, AdminTest, testing::Values(EngineKind::Embedded, EngineKind::StandIn),
                         [](const auto& engine) { return NameOf(engine.param); });

TEST_P(AdminTest, NewRecordsHaveAnIDOfTheirOwn) {
  const struct {
    std::string view, defined, kind, words;
  } cases[] = {{"Users", "JSmith", "User", "user."},           {"Groups", "sales", "Group", "group"},
               {"Rights", "order.ENTER", "Right", "Right"},    {"Remarks", "ord.NOTE", "Remark Type", "remark type."},
               {"Contexts", "custinq", "Context", "context."}, {"Entities", "ORDER", "Entity", "Entity"}};
  for (const auto& each : cases) {
    const std::string question = "Create New " + each.kind + "|" + each.kind + " ID";
    admin.ClickView(each.view);
    tab = "Users";
    New(each.defined);
    EXPECT_THAT(Prompted(), ElementsAre(question, each.kind + " Already Defined|" + each.defined +
                                                      " is already defined as a " + each.words));
    New("New");
    EXPECT_EQ(ShownID() + tab, "NewGeneral");
    // Group 1, which new users join.
    Run("DELETE FROM ttwGroupMember WHERE UserKey > 4 AND GroupKey = 1");
    Delete();
    EXPECT_THAT(Prompted(), ElementsAre(question)) << "nothing is linked to it";
    EXPECT_THAT(Texts(controls.cboID), Not(Contains("New")));
  }
  New("Men's wear");
  EXPECT_EQ(ShownID(), "Men's wear") << "entities are filtered by key, so a quote does no harm";
  AdminSession s(GetParam());
  s.database.Run("INSERT INTO ttwUser (UserID) VALUES ('''t Hooft')");
  s.admin.Load();
  EXPECT_THAT(s.Prompted(), ElementsAre(StartsWith("Error in "))) << "no filter finds the ID of the first user";
  s.Pick("jsmith");
  EXPECT_EQ(s.controls.txtLastName->Text(), "Smith");
}

TEST_P(AdminTest, DeletingAsksWhenOtherRecordsAreLinked) {
  Run("INSERT INTO ttwGroup (GroupID) VALUES ('UR'), ('TU') "
      "INSERT INTO ttwRightAssignment (GroupKey, RightKey) VALUES (5, 1) "
      "INSERT INTO ttwGroupMember (GroupKey, UserKey) VALUES (5, 1), (5, 2), (6, 4) "
      "INSERT INTO ttwRemarkRight (GroupKey, RemarkTypeKey) VALUES (6, 1) "
      "DELETE FROM ttwRemarkContext WHERE RemarkTypeKey = 6 INSERT INTO ttwRemarkEntity (RemarkEntityID) VALUES ('C') "
      "UPDATE ttwContext SET RemarkEntityKey = 3 WHERE ContextKey = 2");
  admin.Load();
  const struct {
    std::string view, id, title, relation, after;
  } cases[] = {{"Users", "guest", "User", " is a member of 1 group(s).", ""},
               {"Groups", "UR", "Entity", " is a group related to  and 2 User(s)  and 1 Right(s)", ". "},
               {"Groups", "TU", "Entity", " is a group related to 1 Remark Type(s) and 1 User(s) ", ". "},
               {"Rights", "Order.Enter", "User", " is a right assigned to 3 group(s).", ""},
               {"Remarks", "Ord.Ship", "Entity", " is a remark type related to 1 Context(s) and 2 Group(s) ", ". "},
               {"Contexts", "OrderEntry", "Context", " is associated with 1 remark type(s).", ""},
               {"Entities", "Order", "Entity", " is a entity related to 2 Remark Type(s) and 1 Context(s) ", ". "},
               {"Entities", "C", "Entity", " is a entity related to 1 Context(s) ", ". "}};
  for (const auto& each : cases) {
    Go(each.view, each.id);
    Delete({PromptAnswer::No});
    EXPECT_THAT(Prompted(), ElementsAre("Confirm Delete " + each.title + "|" + each.id + each.relation + "\r\n" +
                                        each.after + "Are you sure you want to PERMANENTLY delete " + each.id + "?"));
  }
}

TEST_P(AdminTest, DeletedRecordsAreFollowedByAnother) {
  const std::string own = Ask("SELECT UPPER('" + modUserName::GetUserName() + "')");
  Run("INSERT INTO ttwUser (UserID) VALUES ('" + own + "') UPDATE ttwGroup SET GroupID = 'dEFAULT' WHERE GroupKey = 1");
  admin.Load();
  Pick(own);
  Delete();
  EXPECT_THAT(Prompted(), ElementsAre("Cannot Delete User|You are not permitted to delete your own userid"));
  Pick("jsmith");
  Delete({PromptAnswer::Yes});
  EXPECT_EQ(ShownID(), own);

  Go("Groups", "dEFAULT");
  Delete();
  EXPECT_EQ(Prompted().back(), "Cannot Delete Group|The Default group may not be deleted");
  Go("Groups", "Sales", "Users");
  Delete({PromptAnswer::Yes});
  Remove(1, "admin");
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM ttwGroupMember WHERE GroupKey = 4"), "0") << "the lists are the next group's";
  Go("Groups", "Collections", "Rights");
  Run("DROP PROCEDURE spTWCDeleteGroup");
  Delete({PromptAnswer::Yes});
  Add(2, "Order.Delete");
  EXPECT_EQ(Ask("SELECT MIN(GroupKey) FROM ttwRightAssignment WHERE RightKey = 4"), "2") << "the tab is still Rights";
  for (const char* entity : {"Order", "Customer"}) {
    Go("Entities", entity);
    Delete({PromptAnswer::Yes});
  }
  EXPECT_EQ(ShownID() + controls.txtCaption[4]->Text(), "") << "the table is empty";
}

TEST_P(AdminTest, FieldsShowWhatIsStored) {
  const struct {
    std::string view, id, field, typed, stored;
    TextField* box;
  } cases[] = {{"Users", "guest", "lastname", "O'Neill-\"Ray\"", "ONeillRay", controls.txtLastName},
               {"Groups", "Default", "comment", "50% 'off'", "50 off", controls.txtComment[0]},
               {"Rights", "Order.Enter", "Comment", "a", "a", controls.txtComment[1]},
               {"Remarks", "Ord.Note", "caption", "b & c", "b & c", controls.txtCaption[2]},
               {"Contexts", "CustInq", "Comment", "d", "d", controls.txtComment[3]},
               {"Entities", "Order", "procedure", "sp-Get", "spGet", controls.txtProcedure},
               {"Entities", "Order", "EntityKey", "-7/0", "70", controls.txtEntity}};
  for (const auto& each : cases) {
    Go(each.view, each.id);
    EXPECT_TRUE(Type(each.box, each.typed, each.field)) << each.field;
    admin.Load();
    Go(each.view, each.id);
    EXPECT_EQ(each.box->Text(), each.stored);
  }
}

TEST_P(AdminTest, RefusedAndLateChangesAreTakenBack) {
  Run("INSERT INTO ttwGroup (GroupID) VALUES ('Team') INSERT INTO ttwRemarkEntity (RemarkEntityKey, RemarkEntityID, "
      "Caption) VALUES (32767, 'Last', 'last'), (32768, 'Over', 'over')");
  admin.Load();
  Pick("jsmith");
  EXPECT_FALSE(Type(controls.txtLastName, std::string(61, 'x'), "LastName"));
  EXPECT_EQ(controls.txtLastName->Text(), "Smith");
  EXPECT_THAT(Prompted(), ElementsAre(StartsWith("Error in "))) << "61 characters are too many";
  Run("DELETE FROM ttwGroupMember WHERE UserKey = 1 DELETE FROM ttwUser WHERE UserKey = 1");
  EXPECT_FALSE(Type(controls.txtFirstName, "Janet", "FirstName"));
  EXPECT_THAT(Prompted(), ElementsAre(HasSubstr("\"jsmith\" is no longer there")));
  EXPECT_EQ(ShownID() + controls.txtFirstName->Text(), "adminAnna");

  Go("Groups", "Team");
  Run("DELETE FROM ttwGroup WHERE GroupKey = 5 INSERT INTO ttwGroup (GroupID) VALUES ('Team')");
  EXPECT_FALSE(Type(controls.txtCaption[0], "of the former one", "Caption"));
  EXPECT_TRUE(Type(controls.txtCaption[0], "of the new one", "Caption"));

  Go("Entities", "Last");
  EXPECT_EQ(controls.txtCaption[4]->Text(), "last");
  Pick("Over");
  EXPECT_THAT(Prompted(), Contains(EndsWith("|Overflow"))) << "the key has more than 16 bits";
  EXPECT_EQ(controls.txtCaption[4]->Text(), "") << "the other entity's caption must not be edited as this one's";
  EXPECT_FALSE(Type(controls.txtCaption[4], "typed", "Caption"));
  EXPECT_EQ(Ask("SELECT Caption FROM ttwRemarkEntity WHERE RemarkEntityKey = 32768"), "over");
}

TEST_P(AdminTest, ListsLinkRecordsAndTheirFlags) {
  const char* const columns[] = {"CanCreate", "CanUpdate", "CanRead",   "CanDelete", "CanCreate",
                                 "CanUpdate", "CanRead",   "CanDelete", "Priority",  "Priority"};
  for (std::size_t lists = 0; lists < std::size(kPairs); ++lists) {
    const Pair& pair = kPairs[lists];
    Go(pair.view, pair.id, pair.tab);
    Add(lists, pair.item);
    EXPECT_TRUE(IsEnabled(controls.cmdRemove[lists]) && !IsEnabled(controls.cmdAdd[lists]));
    Tab(pair.tab);
    EXPECT_THAT(Remaining(lists), Not(Contains(pair.item)));
    for (std::size_t i = pair.firstFlag; i < pair.firstFlag + pair.flags; ++i) {
      const std::string table = i < 8 ? "ttwRemarkRight" : "ttwRemarkContext";
      const auto sum = [&] { return std::stoi(Ask("SELECT SUM(" + (columns[i] + (") FROM " + table)))); };
      const int before = sum();
      Select(lists, pair.item);
      Check(i, true);
      EXPECT_EQ(sum(), before + 1) << i;
    }
    Remove(lists, pair.item);
    Tab(pair.tab);
    EXPECT_THAT(Current(lists), Not(Contains(pair.item)));
  }
}

}  // namespace
}  // namespace quorvel::test
