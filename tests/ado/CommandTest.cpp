// The values that parameters accept, and the parameters that a command has. EngineTest runs commands on real engines.

#include "ado/Command.h"

#include <tuple>

#include "tests/ado/FakeSession.h"
#include "tests/support/Rows.h"

namespace quorvel::ado {
namespace {

using namespace test;

const ParameterInfo kSmall{"@EntityType", DataType::SmallInt, ParameterDirection::Input, 0};
const ParameterInfo kLong{"@OwnerKey", DataType::Integer, ParameterDirection::Input, 0};
const ParameterInfo kId{"@ContextID", DataType::VarChar, ParameterDirection::Input, 30};
const ParameterInfo kMemo{"@MemoText", DataType::LongVarChar, ParameterDirection::Input, -1};
const ParameterInfo kDate{"@DateStamp", DataType::DBTimeStamp, ParameterDirection::Input, 0};

TEST(Parameter, ConvertsValuesToItsType) {
  using Case = std::tuple<Value, ParameterInfo, Value>;
  for (const auto& [value, info, expected] : {Case{std::int64_t{32767}, kSmall, std::int64_t{32767}},
                                              {" -32768 ", kSmall, std::int64_t{-32768}},
                                              {2.5, kLong, std::int64_t{2}},
                                              {std::int64_t{12}, kId, "12"},
                                              {"äöüäöüäöüäöüäöüäöüäöüäöüäöüäöü", kId, "äöüäöüäöüäöüäöüäöüäöüäöüäöüäöü"},
                                              {std::string(100000, 'x'), kMemo, std::string(100000, 'x')},
                                              {Null{}, kLong, Null{}},
                                              {"2001-02-03", kDate, ParseDateTime("2001-02-03").value()}}) {
    Parameter parameter(info);
    parameter.SetValue(value);
    EXPECT_EQ(parameter.Value(), expected) << info.name;
  }
}

TEST(Parameter, RefusesValuesThatDoNotFit) {
  using Case = std::tuple<Value, ParameterInfo, std::int32_t, const char*>;
  for (const auto& [value, info, number, beginning] :
       {Case{std::int64_t{32768}, kSmall, ErrorNumber::Overflow, "Overflow"},
        {std::int64_t{-2147483649}, kLong, ErrorNumber::Overflow, "Overflow"},
        {"abc", kLong, ErrorNumber::TypeMismatch, "Type mismatch"},
        {"soon", kDate, ErrorNumber::TypeMismatch, "Type mismatch"},
        {std::string(31, 'x'), kId, ErrorNumber::AdoDataConversion, "Application uses a value of the wrong type"}}) {
    Parameter parameter(info, Value{"before"});
    EXPECT_THAT(Caught([&, &given = value] { parameter.SetValue(given); }),
                IsError(number, AllOf(StartsWith(beginning), HasSubstr(info.name))));
    EXPECT_EQ(parameter.Value(), Value{"before"});
  }
}

TEST(Command, ForgetsOnlyDiscoveredParametersWithItsText) {
  FakeEngine engine;
  engine.parameters = {kId, kLong};
  const auto connection = Connect(engine);
  Command discovered = CallOf(connection, "spSomething");
  discovered.Parameters("contextid").SetValue("C1");
  EXPECT_EQ(discovered.Parameters("@ContextID").Value(), Value{"C1"});
  EXPECT_THAT(Caught([&] { (void)discovered.Parameters("@Nobody"); }).Description(),
              HasSubstr("spSomething has no parameter @Nobody"));
  discovered.SetCommandText("spOther");
  EXPECT_EQ(discovered.Parameters("@ContextID").Value(), Value{Null{}});

  Command declared = CallOf(connection, "spSomething");
  declared.Append(Command::CreateParameter("@A", DataType::SmallInt, ParameterDirection::Input, 0, std::int64_t{1}));
  declared.SetCommandText("spOther");
  EXPECT_EQ(declared.Parameters("a").Value(), Value{std::int64_t{1}});
  EXPECT_EQ(Caught([&] { (void)declared.Parameters("@ContextID"); }).Number(), ErrorNumber::AdoItemNotFound);
}

TEST(Command, NeedsAnOpenConnection) {
  FakeEngine engine;
  for (const auto& connection : {std::shared_ptr<Connection>(), MakeConnection(engine)}) {
    Command command = CallOf(connection, "spSomething");
    EXPECT_EQ(Caught([&] { command.Execute(); }).Number(), ErrorNumber::AdoInvalidConnection);
    EXPECT_EQ(Caught([&] { (void)command.Parameters("@A"); }).Number(), ErrorNumber::AdoInvalidConnection);
  }
}

}  // namespace
}  // namespace quorvel::ado
