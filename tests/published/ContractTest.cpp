// The published interfaces are written three times: in quorvel.idl, in quorvel.h and in the member tables for calls by
// name. These tests read the two files and compare the header and the tables with the IDL.

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <quorvel/quorvel.h>

#include <fstream>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "platform/com/Text.h"
#include "runtime/published/PublishedClasses.h"
#include "tests/published/SlotRecorder.h"

namespace quorvel::published {
namespace {

struct IdlParameter {
  std::string attributes;  // "in, optional"; empty in the header
  std::string type;
  std::string name;
};
struct Operation {
  std::string kind;  // "get", "put", "putref"; empty for a method
  std::string id;    // empty in the header
  std::string name;
  std::vector<IdlParameter> parameters;
};
using Interfaces = std::map<std::string, std::vector<Operation>>;
using Rows = std::map<std::string, std::vector<std::string>>;

std::string ReadFile(const std::string& name) {
  std::ostringstream text;
  text << std::ifstream(QUORVEL_INCLUDE "/" + name).rdbuf();
  return std::regex_replace(text.str(), std::regex("//[^\n]*"), "");
}

/// Every match of `pattern`, which refers to `text`.
std::vector<std::smatch> AllOf(const std::string& text, const std::regex& pattern) {
  return {std::sregex_iterator(text.begin(), text.end(), pattern), {}};
}

/// Reads the interfaces of a file. `pattern` matches an operation's kind, identifier, name and parameters.
Interfaces Parse(const std::string& file, const std::regex& pattern) {
  static const std::regex interface(R"((?:interface|struct) (_\w+) : IDispatch \{([^}]*)\};)");
  static const std::regex parameter(R"((?:\[([^\]]*)\] )?(\w+\**) (\w+))");
  Interfaces interfaces;
  const std::string text = ReadFile(file);
  for (const std::smatch& found : AllOf(text, interface)) {
    const std::string body = found[2];
    for (const std::smatch& match : AllOf(body, pattern)) {
      Operation operation{match[1], match[2], match[3], {}};
      const std::string list = match[4];
      for (const std::smatch& each : AllOf(list, parameter)) {
        operation.parameters.push_back({each[1], each[2], each[3]});
      }
      interfaces[found[1]].push_back(operation);
    }
  }
  return interfaces;
}

Interfaces FromHeader() {
  return Parse("quorvel.h", std::regex(R"(HRESULT QUORVEL_CALL (?:(get|put|putref)_)?()(\w+)\(([^)]*)\) = 0;)"));
}
Interfaces FromIdl() {
  return Parse("quorvel.idl",
               std::regex(R"(\[(?:prop(get|put|putref), )?id\((\w+)\)[^\]]*\] HRESULT (\w+)\(([^;]*)\);)"));
}

/// An operation as a C++ host sees it: "get MemoText(BSTR*, )".
std::string HeaderRow(const Operation& operation) {
  std::string row = fmt::format("{} {}(", operation.kind, operation.name);
  for (const IdlParameter& parameter : operation.parameters) row += parameter.type + ", ";
  return row + ")";
}

/// An operation as a caller by name sees it: "get MemoText 14([out, retval] BSTR*, )".
std::string TableRow(const Operation& operation) {
  static const std::map<std::string, std::string> ids{{"DISPID_VALUE", "0"}, {"DISPID_NEWENUM", "-4"}};
  const auto id = ids.find(operation.id);
  std::string row =
      fmt::format("{} {} {}(", operation.kind, operation.name, id != ids.end() ? id->second : operation.id);
  for (const auto& [attributes, type, name] : operation.parameters) {
    row += fmt::format("[{}] {}", attributes, type == "EditBehavior*" ? "LONG*" : type);
    row += attributes == "out, retval" ? ", " : ' ' + name + ", ";
  }
  return row + ")";
}

std::string TypeName(const com::ArgumentType& type) {
  static const std::map<VARTYPE, std::string> names{{VT_I4, "LONG"},         {VT_BOOL, "VARIANT_BOOL"},
                                                    {VT_BSTR, "BSTR"},       {VT_DATE, "DATE"},
                                                    {VT_VARIANT, "VARIANT"}, {VT_UNKNOWN, "IUnknown*"}};
  if (type.type != VT_DISPATCH) return names.at(type.type);
  for (const PublishedClass& published : PublishedClasses()) {
    if (published.interfaceId == *type.interfaceId) return com::FromWide(published.interfaceName) + '*';
  }
  return "IDispatch*";
}

std::string TableRow(const com::Member& member) {
  static const std::map<com::MemberKind, std::string> kinds{{com::MemberKind::Get, "get"},
                                                            {com::MemberKind::Put, "put"},
                                                            {com::MemberKind::PutRef, "putref"},
                                                            {com::MemberKind::Method, ""}};
  std::string row = fmt::format("{} {} {}(", kinds.at(member.kind), com::FromWide(member.name), member.id);
  for (std::size_t i = 0; i < member.parameters.size(); ++i) {
    const auto& [name, optional, defaultValue] = member.parameters[i];
    const com::ArgumentType& type = member.types[i];
    row += type.byReference ? "[in, out" : "[in";
    const std::string value = type.type == VT_BSTR ? "\"\"" : std::to_string(defaultValue);
    if (optional) row += fmt::format(", optional, defaultvalue({})", value);
    row += fmt::format("] {}{} {}, ", TypeName(type), type.byReference ? "*" : "", com::FromWide(name));
  }
  if (member.result.type != VT_EMPTY) row += fmt::format("[out, retval] {}*, ", TypeName(member.result));
  return row + ")";
}

template <typename ToRow>
Rows RowsOf(const Interfaces& interfaces, ToRow toRow) {
  Rows rows;
  for (const auto& [name, operations] : interfaces) {
    for (const Operation& operation : operations) rows[name].push_back(toRow(operation));
  }
  return rows;
}

TEST(Contract, HeaderListsTheOperationsOfTheIdlInTheSameOrder) {
  const Interfaces idl = FromIdl();
  const std::map<std::string, std::size_t> sizes{
      {"_Remark", 19}, {"_RemarkContext", 37}, {"_RemarkList", 13}, {"_RemarkType", 16}};
  for (const auto& [name, size] : sizes) EXPECT_EQ(idl.at(name).size(), size) << name;
  EXPECT_EQ(RowsOf(FromHeader(), HeaderRow), RowsOf(idl, HeaderRow));
}

TEST(Contract, MemberTablesMatchTheIdlAndCallTheSlotOfTheirRow) {
  constexpr std::size_t kDispatchOperations = 7;
  Rows tables;
  for (const PublishedClass& published : PublishedClasses()) {
    std::vector<std::string>& rows = tables[com::FromWide(published.interfaceName)];
    for (const com::Member& member : published.members) {
      test::SlotRecorder recorder;
      std::vector<VARIANT> arguments(member.types.size() + 1);
      VARIANT result{};
      member.call(recorder.AsObject(), arguments.data(), result);
      EXPECT_EQ(recorder.Last(), kDispatchOperations + rows.size()) << com::FromWide(member.name);
      rows.push_back(TableRow(member));
    }
  }
  EXPECT_EQ(tables, RowsOf(FromIdl(), [](const Operation& operation) { return TableRow(operation); }));
}

TEST(Contract, HeaderAndClassesUseTheIdentifiersOfTheIdl) {
  std::map<std::string, std::string> used{{"library Quorvel", com::TextOf(LIBID_Quorvel)}};
  for (const PublishedClass& published : PublishedClasses()) {
    used["interface " + com::FromWide(published.interfaceName)] = com::TextOf(published.interfaceId);
    used["coclass " + com::FromWide(published.name)] = com::TextOf(published.classId);
  }
  static const std::regex pattern(R"(uuid\(([-0-9A-F]+)\)[^\]]*\]\s*((?:library|interface|coclass) \w+))");
  const std::string text = ReadFile("quorvel.idl");
  std::map<std::string, std::string> idl;
  for (const std::smatch& match : AllOf(text, pattern)) idl[match[2]] = '{' + match[1].str() + '}';
  EXPECT_EQ(used, idl);
}

TEST(Contract, EnumerationHasTheSameValuesInHeaderAndIdl) {
  static const std::regex pattern(R"(enum EditBehavior[^{]*\{([^}]*)\})");
  std::vector<std::string> values;
  for (const std::string file : {"quorvel.h", "quorvel.idl"}) {
    const std::string text = ReadFile(file);
    for (const std::smatch& match : AllOf(text, pattern)) {
      values.push_back(std::regex_replace(match[1].str(), std::regex("\\s"), ""));
    }
  }
  const std::string expected = "AutoSaveOnClose=0,NoAutoSave=1,PromptForSave=2";
  EXPECT_EQ(values, (std::vector<std::string>{expected, expected}));
}

}  // namespace
}  // namespace quorvel::published
