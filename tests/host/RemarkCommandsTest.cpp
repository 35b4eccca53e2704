#include <unistd.h>

#include <nlohmann/json.hpp>

#include "tests/host/CommandLine.h"

namespace quorvel::test {
namespace {

using Json = nlohmann::ordered_json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class RemarkCommands : public CommandLine {
 protected:
  void SetUp() override { Initialize(true); }

  static Json ListAcme(const std::string& user) {
    const Outcome outcome = Quorvel(OnAcme({"list", "--json"}, user));
    EXPECT_THAT(outcome, Succeeds());
    return Json::parse(outcome.output);
  }

  /// Memos of the database that hold this text.
  static std::string Stored(const std::string& text) {
    return RunSql("SELECT MemoType, UserID, MemoText FROM tciMemo WHERE MemoText = N'" + text + "'");
  }
};

std::vector<std::string> Keys(const Json& object) {
  std::vector<std::string> keys;
  for (const auto& item : object.items()) keys.push_back(item.key());
  return keys;
}

TEST_F(RemarkCommands, EachUserSeesWhatTheRightsAllow) {
  struct Case {
    const char* user;
    int memos;
    int popups;
  };
  for (const Case& c : {Case{"jsmith", 6, 3}, Case{"mjones", 4, 1}, Case{"admin", 7, 3}, Case{"guest", 0, 0}}) {
    const Json list = ListAcme(c.user);
    EXPECT_EQ(list["memoCount"], c.memos) << c.user;
    EXPECT_EQ(list["popupCount"], c.popups) << c.user;
    EXPECT_EQ(list["remarks"].size(), c.memos) << c.user;
  }
  EXPECT_THAT(Quorvel(OnAcme({"popup"}, "guest")).output, HasSubstr("No remarks"));
  EXPECT_THAT(Quorvel(OnAcme({"list"}, "guest")).output, HasSubstr("guest may read no remarks here\n"));
  EXPECT_THAT(Quorvel({"list", "--context", "CustMaint", "--user", "jsmith"}).output, HasSubstr("No owner"));
}

TEST_F(RemarkCommands, JsonHoldsEverythingInAFixedOrder) {
  const Json list = ListAcme("jsmith");
  EXPECT_THAT(Keys(list), ElementsAre("context", "owner", "user", "types", "remarks", "memoCount", "popupCount"));
  EXPECT_EQ(list["context"].dump(), R"({"id":"CustMaint","caption":"Customer Maintenance","entityKey":501,)"
                                    R"("entityName":"Customer","groupByType":true,"allowRowSizing":true,)"
                                    R"("rowHeight":2,"editBehavior":2})");
  EXPECT_THAT(Keys(list["owner"]), ElementsAre("id", "key", "name"));
  EXPECT_EQ(list["types"][1].dump(), R"({"id":"Cust.Credit","caption":"Credit","showPopup":true,)"
                                     R"("canCreate":0,"canRead":1,"canUpdate":0,"canDelete":0})");
  const Json& first = list["remarks"][0];
  EXPECT_THAT(Keys(first),
              ElementsAre("index", "key", "typeId", "typeCaption", "dateStamp", "userId", "text", "showPopup"));
  EXPECT_EQ(first["index"], 1);
  EXPECT_EQ(first["dateStamp"], "2024-03-11T13:30:00");
}

TEST_F(RemarkCommands, PopupAndListReadAsPeopleKnowThem) {
  const std::string popup = Quorvel(OnAcme({"popup"})).output;
  EXPECT_THAT(popup, HasSubstr("Acme Tools [C1044] Customer Remarks [(embedded)]\n\nCollections  (jsmith on 2024-03-11)"
                               "\nDana promised"));
  EXPECT_THAT(popup, HasSubstr("\nRemark 1 of 3\n\nCollections  (jsmith on 2024-02-13)\n"));
  EXPECT_THAT(popup, HasSubstr("\nRemark 3 of 3\n"));
  EXPECT_THAT(popup, Not(HasSubstr("Enter")));

  ASSERT_THAT(Quorvel(OnAcme({"add", "--type", "Cust.General", "--text", "one\ntwo\x1b[2J"})), Succeeds());
  const std::string list = Quorvel(OnAcme({"list"})).output;
  EXPECT_THAT(list,
              HasSubstr("Acme Tools [C1044], Customer Maintenance, as jsmith\n\nCollections [Cust.AR.Coll], pops up\n"
                        "  1  2024-03-11  jsmith  Dana promised"));
  EXPECT_THAT(list, HasSubstr("jsmith  one\n                         two\xEF\xBF\xBD[2J\n"));
  EXPECT_THAT(list, HasSubstr("\n7 remarks, 3 to pop up\njsmith may add Cust.AR.Coll, Cust.General\n"));
}

TEST_F(RemarkCommands, WindowsThatCannotBeOpenedAreAnErrorAndWhereNothingPopsUpNoneIs) {
  const ScopedVariable display("DISPLAY", "");
  const ScopedVariable wayland("WAYLAND_DISPLAY", "");
  EXPECT_THAT(Quorvel(OnAcme({"popup", "--window"}, "guest")).output, HasSubstr("No remarks"));
  for (const auto& [command, source] : {std::pair{"popup", "PopupMemos"}, {"edit", "EditMemos"}}) {
    const Outcome outcome = Quorvel(OnAcme({command, "--window"}));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors,
                HasSubstr(std::string("quorvel: error -1 at RemarkContext.") + source + ": No window can be opened: "));
  }
}

TEST_F(RemarkCommands, WhatIsAddedChangedAndRemovedIsInTheDatabase) {
  EXPECT_THAT(Quorvel(OnAcme({"add", "--type", "cust.ar.coll", "--text", "-"}), "  It's\nlate \r\n"), Succeeds());
  EXPECT_THAT(ListAcme("jsmith")["remarks"][0]["text"], "It's\nlate");

  const Outcome changed =
      Quorvel(OnAcme({"change", "--index", "1", "--text", "[paid, all]", "--type", "Cust.General"}));
  EXPECT_THAT(changed, Succeeds());
  EXPECT_THAT(changed.output, HasSubstr("(General, jsmith):\n  [paid, all]\n"));
  EXPECT_THAT(Stored("[paid, all]"), HasSubstr("Cust.General  jsmith  [paid, all]\n(1 row)"));

  const Json before = ListAcme("jsmith");
  ASSERT_THAT(Quorvel(OnAcme({"remove", "--index", "2"})), Succeeds());
  const Json after = ListAcme("jsmith");
  EXPECT_EQ(after["memoCount"], before["memoCount"].get<int>() - 1);
  for (const Json& remark : after["remarks"]) EXPECT_NE(remark["key"], before["remarks"][1]["key"]);
}

TEST_F(RemarkCommands, WhatTheRightsForbidIsRefusedAndNothingIsWritten) {
  const Json before = ListAcme("admin");
  EXPECT_THAT(Quorvel(OnAcme({"add", "--type", "Cust.Credit", "--text", "x"})),
              Fails("-1 at quorvel.add: jsmith may not create remarks of type Cust.Credit"));
  EXPECT_THAT(Quorvel(OnAcme({"add", "--type", "Cust.General", "--text", " \n\t "})),
              Fails("-1 at quorvel.add: A remark needs a text"));
  EXPECT_THAT(Quorvel(OnAcme({"add", "--type", "Ord.Note", "--text", "x"})),
              Fails("-1 at RemarkContext.AddRemark: Illegal remark type for this context"));
  EXPECT_THAT(Quorvel(OnAcme({"change", "--index", "3", "--text", "x"})),
              Fails("-1 at quorvel.change: jsmith may not change this remark of type Cust.Credit"));
  EXPECT_THAT(Quorvel(OnAcme({"change", "--index", "1", "--type", "Cust.Credit"})),
              Fails("-1 at quorvel.change: jsmith may not create remarks of type Cust.Credit"));
  EXPECT_THAT(Quorvel(OnAcme({"remove", "--index", "3"})),
              Fails("-1 at quorvel.remove: jsmith may not delete this remark of type Cust.Credit"));
  EXPECT_THAT(Quorvel(OnAcme({"remove", "--index", "7"})),
              Fails("-1 at quorvel.remove: There is no remark 7: jsmith may read 6 remarks of C1044"));
  EXPECT_EQ(ListAcme("admin"), before);
}

TEST_F(RemarkCommands, AuthorsMayChangeAndDeleteTheirOwn) {
  // General: jsmith may create it, and neither update nor delete. Remark 4 is mjones's, 5 is jsmith's.
  EXPECT_THAT(Quorvel(OnAcme({"change", "--index", "4", "--text", "x"})),
              Fails("-1 at quorvel.change: jsmith may not change this remark of type Cust.General"));
  EXPECT_THAT(Quorvel(OnAcme({"remove", "--index", "4"})),
              Fails("-1 at quorvel.remove: jsmith may not delete this remark of type Cust.General"));
  EXPECT_THAT(Quorvel(OnAcme({"change", "--index", "5", "--text", "Mine"})), Succeeds());
  EXPECT_THAT(Stored("Mine"), HasSubstr("Cust.General  jsmith  Mine"));
  EXPECT_THAT(Quorvel(OnAcme({"change", "--index", "4", "--type", "cust.ar.coll"})), Succeeds());
  EXPECT_THAT(Stored("Mine"), HasSubstr("Cust.AR.Coll  jsmith  Mine"));

  // What a collector wrote is no collector's own.
  RunSql("UPDATE ttwRemarkRight SET CanUpdate = 0, CanDelete = 0");
  EXPECT_THAT(Quorvel(OnAcme({"change", "--index", "1", "--text", "x"})),
              Fails("-1 at quorvel.change: jsmith may not change this remark of type Cust.AR.Coll"));
  EXPECT_THAT(Quorvel(OnAcme({"remove", "--index", "1"})),
              Fails("-1 at quorvel.remove: jsmith may not delete this remark of type Cust.AR.Coll"));
}

TEST_F(RemarkCommands, ErrorsOfLoadingKeepNumberAndSource) {
  EXPECT_THAT(Quorvel({"list", "--context", "Nowhere"}),
              Fails("-1 at RemarkContext.LoadContext: ContextID [Nowhere] not found"));
  EXPECT_THAT(Quorvel({"list", "--context", "CustMaint", "--owner", "C9"}),
              Fails("-1 at RemarkContext.LoadMemos: OwnerID [C9] not found"));
  RunSql("UPDATE ttwRemarkEntity SET spGetOwnerName = ''");
  EXPECT_THAT(Quorvel({"list", "--context", "CustMaint", "--owner", "C1044"}),
              Fails("-1 at RemarkContext.LoadMemos: Context has not been loaded"));
}

TEST_F(RemarkCommands, BytesThatAreNotUtf8DoNotBreakTheJson) {
  ASSERT_THAT(Quorvel(OnAcme({"add", "--type", "Cust.AR.Coll", "--text", "caf\xE9 \xF0\x9F\x94\xA7"})), Succeeds());
  EXPECT_EQ(ListAcme("jsmith")["remarks"][0]["text"], "caf\xEF\xBF\xBD \xF0\x9F\x94\xA7");
}

}  // namespace
}  // namespace quorvel::test
