// list, popup, add, change and remove on the sample database, by running the real program.

#include <nlohmann/json.hpp>

#include "tests/host/CommandLine.h"

namespace quorvel::test {
namespace {

using Json = nlohmann::ordered_json;

class RemarkCommands : public CommandLine {
 protected:
  void SetUp() override { Initialize(true); }

  static Json ListAcme(const std::string& user) {
    const Outcome outcome = Quorvel(OnAcme({"list", "--json"}, user));
    EXPECT_THAT(outcome, Succeeds());
    return Json::parse(outcome.output);
  }

  /// The memos of the database with this text.
  static std::string Stored(const std::string& text) {
    return RunSql("SELECT MemoType, UserID, MemoText FROM tciMemo WHERE MemoText = N'" + text + "'");
  }
};

TEST_F(RemarkCommands, UserWithoutRightsAndListWithoutOwner) {
  EXPECT_EQ(ListAcme("guest")["memoCount"], 0);
  EXPECT_THAT(Quorvel(OnAcme({"popup"}, "guest")).output, HasSubstr("No remarks"));
  EXPECT_THAT(Quorvel(OnAcme({"list"}, "guest")).output, HasSubstr("guest may read no remarks here\n"));
  EXPECT_THAT(Quorvel({"list", "--context", "CustMaint", "--user", "jsmith"}).output, HasSubstr("No owner"));
  EXPECT_THAT(Quorvel({"list", "--context", "Nowhere"}),
              Fails("-1 at RemarkContext.LoadContext: ContextID [Nowhere] not found"));
  RunSql("DROP PROCEDURE spGetCustomerName");
  EXPECT_THAT(Quorvel(OnAcme({"list"})), Fails("-1 at RemarkContext.LoadMemos: Context has not been loaded (Could not "
                                               "find stored procedure 'spGetCustomerName'.)"));
}

TEST_F(RemarkCommands, JsonHasEveryPropertyInAFixedOrder) {
  RunSql("UPDATE ttwRemarkRight SET CanCreate = 2, CanRead = 3, CanUpdate = 4, CanDelete = 5");
  RunSql("UPDATE ttwContext SET AllowRowSizing = 1");
  const Outcome list = Quorvel({"list", "--json", "--context", "CustInq", "--owner", "C1000", "--user", "jsmith"});
  EXPECT_EQ(Json::parse(list.output).dump(),
            R"({"context":{"id":"CustInq","caption":"Customer Inquiry","entityKey":501,"entityName":"Customer",)"
            R"("groupByType":false,"allowRowSizing":true,"rowHeight":1,"editBehavior":1},)"
            R"("owner":{"id":"C1000","key":1,"name":"Alder Creek Hardware"},"user":"jsmith",)"
            R"("types":[{"id":"Cust.AR.Coll","caption":"Collections","showPopup":true,)"
            R"("canCreate":2,"canRead":3,"canUpdate":4,"canDelete":5},{"id":"Cust.General","caption":"General",)"
            R"("showPopup":false,"canCreate":2,"canRead":3,"canUpdate":4,"canDelete":5}],)"
            R"("remarks":[{"index":1,"key":8,"typeId":"Cust.General","typeCaption":"General",)"
            R"("dateStamp":"2023-09-05T10:00:00","userId":"mjones","text":"Closed on Wednesday afternoons.",)"
            R"("showPopup":false}],"memoCount":1,"popupCount":0})");

  ASSERT_THAT(Quorvel(OnAcme({"add", "--type", "Cust.AR.Coll", "--text", "foreign"})), Succeeds());
  RunSql("UPDATE tciMemo SET MemoText = 'caf\xE9 \xF0\x9F\x94\xA7 \"\\' WHERE MemoText = 'foreign'");
  EXPECT_EQ(ListAcme("jsmith")["remarks"][0]["text"], "caf\xEF\xBF\xBD \xF0\x9F\x94\xA7 \"\\") << "not UTF-8";
  const std::string misleading =
      "\x7F\xC2\x9B"
      "2J\u202Eelif\u202C";
  ASSERT_THAT(Quorvel(OnAcme({"add", "--type", "Cust.AR.Coll", "--text", misleading})), Succeeds());
  EXPECT_THAT(Quorvel(OnAcme({"list", "--json"})).output, HasSubstr(R"("\u007f\u009b2J\u202eelif\u202c")"));
  EXPECT_EQ(ListAcme("jsmith")["remarks"][0]["text"], misleading);
}

TEST_F(RemarkCommands, PopupAndListShowRemarksAsText) {
  EXPECT_THAT(
      Quorvel(OnAcme({"popup"})).output,
      AllOf(HasAll("Acme Tools [C1044] Customer Remarks [(embedded)]\n\nCollections  (jsmith on 2024-03-11)\nDana ",
                   "\nRemark 1 of 3\n\nCollections  (jsmith on 2024-02-13)\n", "\nRemark 3 of 3\n"),
            Not(HasSubstr("Enter"))));

  ASSERT_THAT(Quorvel(OnAcme({"add", "--type", "Cust.General", "--text", "one\ntwo\x1b[2J"})), Succeeds());
  EXPECT_THAT(Quorvel(OnAcme({"list"})).output,
              HasAll("Acme Tools [C1044], Customer Maintenance, as jsmith\n\nCollections [Cust.AR.Coll], pops up\n"
                     "  1  #7     2024-03-11  jsmith  Dana promised",
                     "jsmith  one\n                                two\xEF\xBF\xBD[2J\n",
                     "\n7 remarks, 3 to pop up\njsmith may add Cust.AR.Coll, Cust.General\n"));
  EXPECT_THAT(RunProgram({QUORVEL_EXAMPLE}).output, HasSubstr("General: one\ntwo?[2J\n"));
}

TEST_F(RemarkCommands, MissingDisplayIsAnErrorUnlessNothingPopsUp) {
  const ScopedVariable display("DISPLAY", "");
  const ScopedVariable wayland("WAYLAND_DISPLAY", "");
  EXPECT_THAT(Quorvel(OnAcme({"popup", "--window"}, "guest")).output, HasSubstr("No remarks"));
  RunSql("DROP TABLE ttwLayout");  // databases of older versions have none
  const std::pair<std::vector<std::string>, const char*> cases[] = {{OnAcme({"popup", "--window"}), "PopupMemos"},
                                                                    {OnAcme({"edit", "--window"}), "EditMemos"},
                                                                    {{"manage"}, "ViewManager"}};
  for (const auto& [command, source] : cases) {
    EXPECT_THAT(Quorvel(command), FailsWith(HasSubstr(std::string("quorvel: error -1 at RemarkContext.") + source +
                                                      ": No window can be opened: ")));
  }
}

TEST_F(RemarkCommands, AddChangeAndRemoveReachTheDatabase) {
  EXPECT_THAT(Quorvel(OnAcme({"add", "--type", "cust.ar.coll", "--text", "-"}), "\uFEFF  It's\nlate \r\n"), Succeeds());
  EXPECT_THAT(ListAcme("jsmith")["remarks"][0]["text"], "It's\nlate");

  EXPECT_THAT(Quorvel(OnAcme({"change", "--index", "1", "--text", "[paid, all]", "--type", "Cust.General"})),
              Succeeds(HasSubstr("(General, jsmith):\n  [paid, all]\n")));
  EXPECT_THAT(Stored("[paid, all]"), HasSubstr("Cust.General  jsmith  [paid, all]\n(1 row)"));

  const Json before = ListAcme("jsmith");
  ASSERT_THAT(Quorvel(OnAcme({"remove", "--index", "2"})), Succeeds());
  const Json after = ListAcme("jsmith");
  EXPECT_EQ(after["memoCount"], before["memoCount"].get<int>() - 1);
  for (const Json& remark : after["remarks"]) EXPECT_NE(remark["key"], before["remarks"][1]["key"]);
}

TEST_F(RemarkCommands, KeyFindsTheRemarkWhenTheListHasChanged) {
  const std::string key = ListAcme("jsmith")["remarks"][0]["key"].dump();
  ASSERT_THAT(Quorvel(OnAcme({"add", "--type", "Cust.AR.Coll", "--text", "meanwhile"}, "admin")), Succeeds());
  const Json before = ListAcme("jsmith");
  const std::string added = before["remarks"][0]["key"].dump();
  EXPECT_THAT(Quorvel(OnAcme({"remove", "--index", "1", "--expect", key})),
              Fails("-1 at quorvel.remove: The list has changed: remark 1 has the key " + added + " and not " + key));
  for (const std::vector<std::string>& wrong : {std::vector<std::string>{"remove", "--key", key, "--index", "2"},
                                                {"remove", "--key", key, "--expect", key},
                                                {"remove"}}) {
    EXPECT_THAT(Quorvel(OnAcme(wrong)), IsWrongUsage("--index"));
  }
  EXPECT_EQ(ListAcme("jsmith"), before);

  EXPECT_THAT(Quorvel(OnAcme({"change", "--index", "2", "--expect", key, "--text", "x"})), Succeeds());
  EXPECT_THAT(Quorvel(OnAcme({"remove", "--key", "0x1"})), IsWrongUsage("0x1 is not a whole number"));
  EXPECT_THAT(Quorvel(OnAcme({"remove", "--key", "00" + key})).output, HasSubstr("Removed remark " + key + " "));
  EXPECT_THAT(
      Quorvel(OnAcme({"remove", "--key", key})),
      Fails("-1 at quorvel.remove: There is no remark with the key " + key + ": jsmith may read 6 remarks of C1044"));
}

// A script that repeats what failed must not add a remark twice.
TEST_F(RemarkCommands, OutputThatCannotBeWrittenIsAnErrorUnlessTheDatabaseWasChanged) {
  const std::string unwritable = "The standard output cannot be written: ";
  const std::string run = "exec \"$0\" \"$@\" ";
  const auto add = [](const std::string& text) { return OnAcme({"add", "--type", "Cust.General", "--text", text}); };
  for (const std::string streams : {">/dev/full", ">&-", "</dev/null >&- 2>&-"}) {
    const Outcome added = RunShell(run + streams, add("once " + streams));
    EXPECT_EQ(added.status, 0) << streams;
    EXPECT_THAT(Stored("once " + streams), HasSubstr("(1 row)"));
    const Outcome listed = RunShell(run + streams, OnAcme({"list"}));
    EXPECT_EQ(listed.status, 1) << streams;
    if (streams.find("2>") != std::string::npos) continue;
    EXPECT_THAT(added.errors, HasAll("quorvel: Added remark ", unwritable));
    EXPECT_THAT(listed.errors, HasSubstr(unwritable));
  }
  EXPECT_EQ(RunShell(run + "2>/dev/full", {"list", "--context", "Nowhere"}).status, 1);
  EXPECT_EQ(RunShell(run + ">/dev/full", {"--help"}).status, 1);
  // The program outlives the limit of a file's size, and a reader that ends first.
  const std::string full = File("full");
  const Outcome limited =
      RunShell("head -c 900000 /dev/zero >" + full + "; ulimit -f 1600; " + run + ">>" + full, add("to a full file"));
  EXPECT_EQ(limited.status, 0);
  EXPECT_THAT(limited.errors, HasAll("quorvel: Added remark ", unwritable));
  EXPECT_THAT(RunShell("(sleep 0.1; \"$0\" \"$@\"; echo $? >&2) | true", OnAcme({"list"})).errors,
              HasAll(unwritable + "Broken pipe", "\n1\n"));
}

TEST_F(RemarkCommands, RefusedCommandsWriteNothing) {
  // General gives jsmith neither update nor delete; remark 4 is another user's.
  const Json before = ListAcme("admin");
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"add", "--type", "Cust.Credit", "--text", "x"},
       "quorvel.add: jsmith may not create remarks of type Cust.Credit"},
      {{"add", "--type", "Cust.General", "--text", " \n\t "}, "quorvel.add: A remark needs a text"},
      {{"add", "--type", "Cust.General", "--text", "caf\xE9"},
       "quorvel.add: The text is not UTF-8, and nothing was written. The command iconv converts a text, for example "
       "iconv -f latin1 -t utf-8"},
      {{"add", "--type", "Ord.Note", "--text", "x"}, "RemarkContext.AddRemark: Illegal remark type for this context"},
      {{"change", "--index", "3", "--text", "x"},
       "quorvel.change: jsmith may not change this remark of type Cust.Credit"},
      {{"change", "--index", "4", "--text", "x"},
       "quorvel.change: jsmith may not change this remark of type Cust.General"},
      {{"change", "--index", "1", "--type", "Cust.Credit"},
       "quorvel.change: jsmith may not create remarks of type Cust.Credit"},
      {{"remove", "--index", "4"}, "quorvel.remove: jsmith may not delete this remark of type Cust.General"},
      {{"remove", "--index", "7"}, "quorvel.remove: There is no remark 7: jsmith may read 6 remarks of C1044"},
  };
  for (const auto& [command, error] : cases) {
    EXPECT_THAT(Quorvel(OnAcme(command)), Fails(std::string("-1 at ") + error));
  }
  EXPECT_THAT(Quorvel(OnAcme({"add", "--type", "Cust.General", "--text", "-"}), "caf\xE9\n"),
              FailsWith(HasSubstr("quorvel.add: The standard input is not UTF-8")));
  EXPECT_THAT(Quorvel(OnAcme({"add", "--type", "Cust.General", "--text", "x"}, "Andr\xE9")),
              FailsWith(HasSubstr("quorvel.add: The user is not UTF-8")));
  EXPECT_EQ(ListAcme("admin"), before);
}

TEST_F(RemarkCommands, AuthorsMayChangeAndDeleteTheirOwnExceptCollections) {
  EXPECT_THAT(Quorvel(OnAcme({"change", "--index", "5", "--text", "Mine"})), Succeeds());
  EXPECT_THAT(Stored("Mine"), HasSubstr("Cust.General  jsmith  Mine"));
  EXPECT_THAT(Quorvel(OnAcme({"change", "--index", "4", "--type", "cust.ar.coll"})), Succeeds());
  EXPECT_THAT(Stored("Mine"), HasSubstr("Cust.AR.Coll  jsmith  Mine"));

  // A new type needs the right to delete from the old one.
  RunSql("UPDATE ttwRemarkRight SET CanUpdate = 1, CanDelete = 0");
  const std::string refusal = ": jsmith may not delete this remark of type Cust.AR.Coll";
  EXPECT_THAT(Quorvel(OnAcme({"change", "--index", "1", "--type", "Cust.General"})),
              Fails("-1 at quorvel.change" + refusal));
  EXPECT_THAT(Quorvel(OnAcme({"remove", "--index", "1"})), Fails("-1 at quorvel.remove" + refusal));
  EXPECT_THAT(Stored("Mine"), HasSubstr("Cust.AR.Coll  jsmith  Mine"));
  RunSql("UPDATE ttwRemarkRight SET CanUpdate = 0");
  EXPECT_THAT(Quorvel(OnAcme({"change", "--index", "1", "--text", "x"})),
              Fails("-1 at quorvel.change: jsmith may not change this remark of type Cust.AR.Coll"));
}

}  // namespace
}  // namespace quorvel::test
