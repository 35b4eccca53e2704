#include <array>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/published/HostTest.h"
#include "tests/published/LateBound.h"

// The header and the IDL describe the same interfaces, and the component answers to both.
namespace quorvel::test {
namespace {

/// One operation, as both files can say it.
struct Operation {
  std::string kind;  // "get_", "put_", "putref_", or empty for a method
  std::string name;
  std::vector<std::string> types;
  std::vector<std::string> parameters;  // names; known to the IDL only
  std::string id;                       // known to the IDL only

  friend bool operator==(const Operation& left, const Operation& right) {
    return left.kind == right.kind && left.name == right.name && left.types == right.types;
  }
  friend std::ostream& operator<<(std::ostream& stream, const Operation& operation) {
    stream << operation.kind << operation.name << '(';
    for (const std::string& type : operation.types) stream << type << ' ';
    return stream << ')';
  }
};
using Interfaces = std::map<std::string, std::vector<Operation>>;

std::string ReadFile(const std::string& name) {
  std::ostringstream text;
  text << std::ifstream(std::string(QUORVEL_INCLUDE) + "/" + name).rdbuf();
  // Comments may hold anything.
  return std::regex_replace(text.str(), std::regex("//[^\n]*"), "");
}

/// Every match of `pattern`; they refer to `text`.
std::vector<std::smatch> AllOf(const std::string& text, const std::regex& pattern) {
  return {std::sregex_iterator(text.begin(), text.end(), pattern), {}};
}

/// What stands between the brackets of each interface.
std::map<std::string, std::string> Bodies(const std::string& text) {
  static const std::regex pattern(R"((?:interface|struct) (_\w+) : IDispatch \{([^}]*)\};)");
  std::map<std::string, std::string> bodies;
  for (const std::smatch& match : AllOf(text, pattern)) bodies[match[1]] = match[2];
  return bodies;
}

void TakeParameters(const std::string& list, Operation& operation) {
  static const std::regex pattern(R"((\w+\**) (\w+))");
  for (const std::smatch& match : AllOf(list, pattern)) {
    operation.types.push_back(match[1]);
    operation.parameters.push_back(match[2]);
  }
}

Interfaces FromHeader() {
  static const std::regex pattern(R"(HRESULT QUORVEL_CALL (get_|put_|putref_)?(\w+)\(([^)]*)\) = 0;)");
  Interfaces interfaces;
  for (const auto& [name, body] : Bodies(ReadFile("quorvel.h"))) {
    for (const std::smatch& match : AllOf(body, pattern)) {
      Operation operation{match[1], match[2], {}, {}, {}};
      TakeParameters(match[3], operation);
      interfaces[name].push_back(operation);
    }
  }
  return interfaces;
}

Interfaces FromIdl() {
  static const std::regex pattern(R"(\[(?:prop(get|put|putref), )?id\((\w+)\)[^\]]*\] HRESULT (\w+)\(([^;]*)\);)");
  static const std::regex attributes(R"(\[[^\]]*\])");
  Interfaces interfaces;
  for (const auto& [name, body] : Bodies(ReadFile("quorvel.idl"))) {
    for (const std::smatch& match : AllOf(body, pattern)) {
      Operation operation{match[1].matched ? match[1].str() + "_" : "", match[3], {}, {}, match[2]};
      TakeParameters(std::regex_replace(match[4].str(), attributes, ""), operation);
      if (match[4].str().find("retval") != std::string::npos) operation.parameters.pop_back();
      interfaces[name].push_back(operation);
    }
  }
  return interfaces;
}

TEST(Contract, HeaderAndIdlListTheSameOperationsInTheSameOrder) {
  const Interfaces header = FromHeader();
  const Interfaces idl = FromIdl();
  const std::map<std::string, std::size_t> sizes{
      {"_Remark", 19}, {"_RemarkContext", 37}, {"_RemarkList", 13}, {"_RemarkType", 16}};
  ASSERT_EQ(idl.size(), sizes.size());
  for (const auto& [name, size] : sizes) {
    ASSERT_EQ(idl.at(name).size(), size) << name;
    EXPECT_THAT(header.at(name), testing::ElementsAreArray(idl.at(name))) << name;
  }
}

std::string Shown(const GUID& id) {
  std::array<char, 37> text{};
  const auto* last = id.Data4;
  std::snprintf(text.data(), text.size(), "%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X", id.Data1, id.Data2,
                id.Data3, last[0], last[1], last[2], last[3], last[4], last[5], last[6], last[7]);
  return text.data();
}

TEST(Contract, HeaderAndIdlUseTheSameIdentifiers) {
  const std::map<std::string, GUID> header{
      {"library Quorvel", LIBID_Quorvel},         {"interface _RemarkType", IID__RemarkType},
      {"interface _Remark", IID__Remark},         {"interface _RemarkContext", IID__RemarkContext},
      {"interface _RemarkList", IID__RemarkList}, {"coclass RemarkType", CLSID_RemarkType},
      {"coclass Remark", CLSID_Remark},           {"coclass RemarkContext", CLSID_RemarkContext},
      {"coclass RemarkList", CLSID_RemarkList},
  };
  static const std::regex pattern(R"(uuid\(([-0-9A-F]+)\)[^\]]*\]\s*((?:library|interface|coclass) \w+))");
  const std::string text = ReadFile("quorvel.idl");
  std::map<std::string, std::string> idl;
  for (const std::smatch& match : AllOf(text, pattern)) idl[match[2]] = match[1];
  EXPECT_EQ(idl.size(), header.size());
  std::set<std::string> different;
  for (const auto& [name, id] : header) {
    EXPECT_EQ(idl[name], Shown(id)) << name;
    different.insert(Shown(id));
  }
  EXPECT_EQ(different.size(), header.size());
}

class ContractTest : public HostTest {
 protected:
  /// An object with each interface.
  static std::map<std::string, Reference<IDispatch>> Objects(const LoadedContext& context) {
    std::map<std::string, Reference<IDispatch>> objects;
    objects["_RemarkContext"] = Ask<IDispatch>(context.Get(), IID_IDispatch);
    objects["_RemarkList"] = Ask<IDispatch>(context.List().Get(), IID_IDispatch);
    objects["_RemarkType"] = Ask<IDispatch>(context.Type(LONG{1}).Get(), IID_IDispatch);
    objects["_Remark"] = Ask<IDispatch>(RemarkAt(context.List().Get(), 1).Get(), IID_IDispatch);
    return objects;
  }
};

/// Letters in turns large and small: names are found whatever their case.
WideText Odd(const std::string& name) {
  WideText odd;
  for (const char c : name) {
    const int letter = odd.size() % 2 == 0 ? std::tolower(c) : std::toupper(c);
    odd += static_cast<OLECHAR>(letter);
  }
  return odd;
}

DISPID Number(const std::string& id) {
  if (id == "DISPID_VALUE") return DISPID_VALUE;
  if (id == "DISPID_NEWENUM") return DISPID_NEWENUM;
  return std::stoi(id);
}

void ExpectNames(IDispatch* object, const Operation& operation) {
  const bool isPut = operation.kind == "put_" || operation.kind == "putref_";
  std::vector<WideText> names{Odd(operation.name)};
  std::vector<DISPID> expected{Number(operation.id)};
  for (std::size_t i = 0; !isPut && i < operation.parameters.size(); ++i) {
    names.push_back(Odd(operation.parameters[i]));
    expected.push_back(static_cast<DISPID>(i));
  }
  std::vector<LPOLESTR> pointers;
  pointers.reserve(names.size());
  for (WideText& name : names) pointers.push_back(name.data());
  std::vector<DISPID> ids(names.size());
  EXPECT_EQ(object->GetIDsOfNames(IID_NULL, pointers.data(), static_cast<UINT>(ids.size()), 0, ids.data()), S_OK)
      << operation;
  EXPECT_EQ(ids, expected) << operation;
}

TEST_F(ContractTest, EveryMemberAndParameterIsFoundByName) {
  Run([] {
    const LoadedContext context;
    const auto objects = Objects(context);
    for (const auto& [name, operations] : FromIdl()) {
      std::map<std::string, DISPID> first;
      for (std::size_t row = 0; row < operations.size(); ++row) {
        const Operation& operation = operations[row];
        ExpectNames(objects.at(name).Get(), operation);
        // The rule for ordinary members.
        const auto [known, isNew] = first.try_emplace(operation.name, static_cast<DISPID>(row + 1));
        const DISPID id = Number(operation.id);
        EXPECT_EQ(id, id > 0 ? known->second : id) << name << ' ' << operation;
      }
    }
  });
}

}  // namespace
}  // namespace quorvel::test
