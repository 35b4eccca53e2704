// A load sends context, types and rights in one request. It must end as if each were a request of its own.

#include <chrono>
#include <string>
#include <vector>

#include "tests/runtime/OnServer.h"
#include "tests/runtime/RuntimeTest.h"

namespace quorvel::test {
namespace {

using modDatabase::SharedConnection;

Part Rows(const std::vector<const char*>& columns, std::vector<Value> cells) {
  Part part{Part::Kind::Rows, {}, 0, {}, {std::move(cells)}};
  for (const char* name : columns) part.columns.push_back({name, ado::DataType::Empty});
  return part;
}

Part ContextRow() {
  return Rows({"Caption", "EntityKey", "EntityName", "spGetOwnerName", "GroupByType", "AllowRowSizing", "RowHeight",
               "EditBehavior"},
              {std::string("Given"), Number(501), std::string("Customer"), std::string("spGetCustomerName"), Number(0),
               Number(0), Number(300), Number(1)});
}

Part TypeRow(const char* type) {
  return Rows({"TypeID", "Caption", "Priority"}, {std::string(type), std::string("Given"), Number(1)});
}

Part EndOfCall() { return Rows({"QuorvelEndOfCall"}, {Number(1)}); }

std::vector<std::string> Records() {
  std::vector<std::string> records;
  for (const auto& record : SharedConnection()->Errors()) records.push_back(record.description);
  return records;
}

class CallsTogetherTest : public OnServer {
 protected:
  [[nodiscard]] static Error LoadError(const ContextHolder& context, const std::string& contextID = "CustMaint",
                                       const std::string& userID = "jsmith") {
    return Caught([&] { context->Load(contextID, "C1044", userID); });
  }
};

TEST_F(CallsTogetherTest, AFailedCallIsTheOnlyOneThatFails) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  m_file.Run("DROP PROCEDURE spTWCqvGetRemarkTypes");
  const Error alone = Caught([] { (void)modDatabase::ExecDeclaredSP("spTWCqvGetRemarkTypes", {}); });
  const std::vector<std::string> records = Records();
  SharedConnection()->ClearErrors();

  m_server.ForgetRequests();
  EXPECT_THAT(LoadError(context, "Nowhere"),
              IsError(ErrorNumber::Component, "RemarkContext.LoadContext", "ContextID [Nowhere] not found"));
  EXPECT_THAT(Records(), IsEmpty()) << "the load has ended before the types";

  EXPECT_THAT(LoadError(context), IsError(alone.Number(), alone.Source(), alone.Description()));
  EXPECT_EQ(Records(), records);
  EXPECT_EQ(context->TypeCount(), 0);
  EXPECT_EQ(context->UserID(), "admin") << "the rights were not asked for";
  EXPECT_THAT(m_server.Requests(), ElementsAre(kContextTypesRights, kContextTypesRights));
}

TEST_F(CallsTogetherTest, EachRecordBelongsToItsCall) {
  const ContextHolder context;
  m_server.AnswerWith(kContextTypesRights,
                      {ContextRow(), Message("of the context"), EndOfCall(), TypeRow("A"), OneRow(),
                       Message("of the types"), EndOfCall(), Failure("of the rights"), OneRow(), Failure("late")});
  EXPECT_EQ(LoadError(context).Description(), "of the rights");
  EXPECT_THAT(Records(), ElementsAre("of the rights", "late"));
  EXPECT_EQ(context->Caption(), "Given");
  EXPECT_EQ(context->TypeCount(), 1) << "a second result set of a call is skipped";
  EXPECT_EQ(context->UserID(), "jsmith");

  m_server.AnswerWith(kContextTypesRights,
                      {ContextRow(), Failure("behind the context"), EndOfCall(), TypeRow("B"), EndOfCall(), OneRow()});
  EXPECT_EQ(LoadError(context).Description(), "behind the context");
  EXPECT_THAT(Records(), ElementsAre("behind the context"));
  EXPECT_NE(context->Item(std::string("A")), nullptr);
}

TEST_F(CallsTogetherTest, AUserIDThatDoesNotFitFailsAfterTheTypes) {
  const ContextHolder context;
  EXPECT_EQ(LoadError(context, "Nowhere", std::string(31, 'u')).Number(), ErrorNumber::Component);
  EXPECT_EQ(LoadError(context, "CustMaint", std::string(31, 'u')).Number(), ErrorNumber::AdoDataConversion);
  EXPECT_GT(context->TypeCount(), 0);
}

// A driver may carry out the first call only, and a server may refuse what makes one request of them.
TEST_F(CallsTogetherTest, CallsAreSentOneByOneWhereTheyCannotBeSentTogether) {
  for (const Part& answer : {ContextRow(), Failure("EXECUTE was denied on sp_executesql", 229)}) {
    modDatabase::OpenConnection();
    m_server.AnswerWith(kContextTypesRights, {answer});
    m_server.ForgetRequests();
    for (int i = 0; i < 2; ++i) {
      const ContextHolder context("CustMaint", "C1044", "admin");
      EXPECT_GT(context->MemoCount(), 0);
    }
    EXPECT_THAT(m_server.Requests(),
                ElementsAre(kContextTypesRights, "call spTWCqvGetContext", "call spTWCqvGetRemarkTypes",
                            "call spTWCqvGetUserRights", "call spGetCustomerName", "call spTWCqvGetFilteredMemos",
                            "call spTWCqvGetContext", "call spTWCqvGetRemarkTypes", "call spTWCqvGetUserRights",
                            "call spGetCustomerName", "call spTWCqvGetFilteredMemos"));
  }
}

TEST_F(CallsTogetherTest, WhatCameBeforeALossOrATimeoutStaysLoaded) {
  const ContextHolder context;
  for (const bool isAmid : {false, true}) {
    SCOPED_TRACE(isAmid);
    modDatabase::OpenConnection();
    const auto former = ConnectionNow();
    isAmid ? m_server.DropAmidRows(1) : m_server.DropAtRequest(1);
    EXPECT_NE(LoadError(context).Number(), 0);
    EXPECT_THAT(former->Errors().at(0).sqlState, HasSubstr("08"));
    EXPECT_EQ(SharedConnection(), nullptr);
    // The answer ends amid the rights.
    EXPECT_EQ(context->Caption().empty(), !isAmid);
    EXPECT_EQ(context->TypeCount() > 0, isAmid);
  }
  context->Load("CustMaint", "C1044", "admin");
  SharedConnection()->SetCommandTimeout(std::chrono::seconds(1));
  m_server.DelayAnswers(std::chrono::seconds(5));
  EXPECT_EQ(LoadError(context).Number(), ErrorNumber::DbTimeout);
}

}  // namespace
}  // namespace quorvel::test
