#include "ado/Command.h"

#include <gmock/gmock.h>

#include "tests/ado/FakeSession.h"

namespace quorvel::ado {
namespace {

using test::Caught;
using test::FakeEngine;
using testing::HasSubstr;
using testing::StartsWith;

const ParameterInfo kSmall{"@EntityType", DataType::SmallInt, ParameterDirection::Input, 0};
const ParameterInfo kLong{"@OwnerKey", DataType::Integer, ParameterDirection::Input, 0};
const ParameterInfo kId{"@ContextID", DataType::VarChar, ParameterDirection::Input, 30};
const ParameterInfo kMemo{"@MemoText", DataType::LongVarChar, ParameterDirection::Input, -1};
const ParameterInfo kDate{"@DateStamp", DataType::DBTimeStamp, ParameterDirection::Input, 0};
const ParameterInfo kNewKey{"@oNewKey", DataType::Integer, ParameterDirection::Output, 0};

Command ProcedureCall(std::shared_ptr<Connection> connection) {
  Command command;
  command.SetActiveConnection(std::move(connection));
  command.SetCommandType(CommandType::StoredProcedure);
  command.SetCommandText("spSomething");
  return command;
}

TEST(CoerceToParameter, ConvertsToTheParametersType) {
  const std::vector<std::tuple<Value, const ParameterInfo*, Value>> cases = {
      {std::int64_t{32767}, &kSmall, std::int64_t{32767}},
      {std::string(" -32768 "), &kSmall, std::int64_t{-32768}},
      {2.5, &kLong, std::int64_t{2}},
      {std::int64_t{2147483647}, &kLong, std::int64_t{2147483647}},
      {std::int64_t{12}, &kId, std::string("12")},
      {std::string(30, 'x'), &kId, std::string(30, 'x')},
      {std::string("äöüäöüäöüäöüäöüäöüäöüäöüäöüäöü"), &kId, std::string("äöüäöüäöüäöüäöüäöüäöüäöüäöüäöü")},
      {std::string(100000, 'x'), &kMemo, std::string(100000, 'x')},
      {Null{}, &kLong, Null{}},
      {std::string("2001-02-03"), &kDate, ParseDateTime("2001-02-03").value()},
  };
  for (const auto& [value, parameter, expected] : cases) {
    EXPECT_EQ(CoerceToParameter(value, *parameter), expected) << parameter->name;
  }
}

TEST(CoerceToParameter, NamesTheParameterThatAValueDoesNotFit) {
  const std::vector<std::tuple<Value, const ParameterInfo*, std::int32_t, std::string>> cases = {
      {std::int64_t{32768}, &kSmall, ErrorNumber::Overflow, "Overflow"},
      {std::int64_t{-2147483649}, &kLong, ErrorNumber::Overflow, "Overflow"},
      {std::string("abc"), &kLong, ErrorNumber::TypeMismatch, "Type mismatch"},
      {std::string("soon"), &kDate, ErrorNumber::TypeMismatch, "Type mismatch"},
      {std::string(31, 'x'), &kId, ErrorNumber::AdoDataConversion, "Application uses a value of the wrong type"},
  };
  for (const auto& [value, parameter, number, beginning] : cases) {
    const Error error =
        Caught([&value = value, &parameter = parameter] { static_cast<void>(CoerceToParameter(value, *parameter)); });
    EXPECT_EQ(error.Number(), number) << parameter->name;
    EXPECT_THAT(error.Description(), StartsWith(beginning));
    EXPECT_THAT(error.Description(), HasSubstr(parameter->name));
  }
}

TEST(Command, DeclaredParametersAreSentInOrderWithoutDiscovery) {
  FakeEngine engine;
  engine.columns = {{"OwnerKey", DataType::Integer}};
  Command command = ProcedureCall(test::Connect(engine));
  command.Append(Command::CreateParameter("@B", DataType::VarChar, ParameterDirection::Input, 30, std::string("b")));
  command.Append(Command::CreateParameter("@A", DataType::SmallInt, ParameterDirection::Input, 0, std::int64_t{1}));
  EXPECT_EQ(Caught([&] { static_cast<void>(command.Parameters("@C")); }).Number(), ErrorNumber::AdoItemNotFound);
  const auto recordset = command.Execute();
  EXPECT_TRUE(recordset->IsOpen());
  EXPECT_TRUE(recordset->EndOfFile());
  EXPECT_EQ(engine.discoveries, 0);
  ASSERT_EQ(engine.sent.size(), 2U);
  EXPECT_EQ(engine.sent[0].Info().name, "@B");
  EXPECT_EQ(engine.sent[1].Given(), Value{std::int64_t{1}});
}

TEST(Command, DiscoversParametersOnceAndReturnsOutputs) {
  FakeEngine engine;
  engine.parameters = {kId, kLong, kNewKey};
  engine.output = std::int64_t{42};
  Command command = ProcedureCall(test::Connect(engine));
  command.Parameters("contextid").SetValue(std::string("C1"));
  EXPECT_EQ(Caught([&] { command.Parameters("@ContextID").SetValue(std::string(31, 'x')); }).Number(),
            ErrorNumber::AdoDataConversion);
  const auto recordset = command.Execute();
  EXPECT_FALSE(recordset->IsOpen());
  EXPECT_EQ(engine.sent.at(0).Given(), Value{std::string("C1")});
  EXPECT_FALSE(engine.sent.at(1).Given().has_value()) << "a value nobody gave must leave the default in force";
  EXPECT_EQ(command.Parameters("@oNewKey").Value(), Value{std::int64_t{42}});
  EXPECT_EQ(command.Parameters("@ContextID").Value(), Value{std::string("C1")});
  const Error unknown = Caught([&] { static_cast<void>(command.Parameters("@Nobody")); });
  EXPECT_EQ(unknown.Number(), ErrorNumber::AdoItemNotFound);
  EXPECT_THAT(unknown.Description(), HasSubstr("spSomething has no parameter @Nobody"));
  EXPECT_EQ(engine.discoveries, 1);
  command.SetCommandText("spOther");
  static_cast<void>(command.Parameters("@ContextID"));
  EXPECT_EQ(engine.discoveries, 2);
}

TEST(Command, NeedsAnOpenConnection) {
  FakeEngine engine;
  for (const auto& connection : {std::shared_ptr<Connection>(), test::MakeConnection(engine)}) {
    Command command = ProcedureCall(connection);
    EXPECT_EQ(Caught([&] { command.Execute(); }).Number(), ErrorNumber::AdoInvalidConnection);
    EXPECT_EQ(Caught([&] { static_cast<void>(command.Parameters("@A")); }).Number(), ErrorNumber::AdoInvalidConnection);
  }
}

}  // namespace
}  // namespace quorvel::ado
