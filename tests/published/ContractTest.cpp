// The published interfaces are written three times: in quorvel.idl, in quorvel.h and in the member tables for calls by
// name. The tables take their types and slots from the header, so these tests compare the tables with the IDL.

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <quorvel/quorvel.h>

#include <array>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "platform/com/Text.h"
#include "runtime/published/PublishedClasses.h"

namespace quorvel::published {
namespace {

using Rows = std::map<std::string, std::vector<std::string>>;

std::string ReadIdl() {
  std::ostringstream text;
  text << std::ifstream(QUORVEL_INCLUDE "/quorvel.idl").rdbuf();
  return std::regex_replace(text.str(), std::regex("//[^\n]*"), "");
}

/// Every match of `pattern`, which refers to `text`.
std::vector<std::smatch> AllOf(const std::string& text, const std::regex& pattern) {
  return {std::sregex_iterator(text.begin(), text.end(), pattern), {}};
}

/// The parameters of an operation in the IDL, with the types that a caller by name uses and without the results' names.
std::string ParametersOf(const std::string& list) {
  static const std::regex pattern(R"(\[([^\]]*)\] (\w+\**) (\w+))");
  std::string parameters;
  for (const std::smatch& match : AllOf(list, pattern)) {
    parameters += fmt::format("[{}] {}", match[1].str(), match[2] == "EditBehavior*" ? "LONG*" : match[2].str());
    parameters += match[1] == "out, retval" ? ", " : ' ' + match[3].str() + ", ";
  }
  return parameters;
}

/// The operations of each interface in the IDL, such as "get MemoText 14([out, retval] BSTR*, )".
Rows IdlRows() {
  static const std::regex interface(R"(interface (_\w+) : IDispatch \{([^}]*)\};)");
  // An operation's kind, identifier, name and parameters.
  static const std::regex operation(R"(\[(?:prop(get|put|putref), )?id\((\w+)\)[^\]]*\] HRESULT (\w+)\(([^;]*)\);)");
  static const std::map<std::string, std::string> ids{{"DISPID_VALUE", "0"}, {"DISPID_NEWENUM", "-4"}};
  Rows rows;
  const std::string text = ReadIdl();
  for (const std::smatch& found : AllOf(text, interface)) {
    const std::string body = found[2];
    for (const std::smatch& match : AllOf(body, operation)) {
      const auto id = ids.find(match[2]);
      rows[found[1]].push_back(fmt::format("{} {} {}({})", match[1].str(), match[3].str(),
                                           id != ids.end() ? id->second : match[2].str(), ParametersOf(match[4])));
    }
  }
  return rows;
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

/// The same for a row of a member table.
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

/// Acts as an object of any interface and records which slot of its table of operations was called last. Works on
/// 64-bit systems only: there the caller removes the arguments, so one function fits every call.
class SlotRecorder {
 public:
  /// The first member is the pointer to the table, as in every object.
  [[nodiscard]] IDispatch& AsObject() noexcept { return reinterpret_cast<IDispatch&>(*this); }

  [[nodiscard]] std::size_t Last() const noexcept { return m_last; }

 private:
  using Slot = HRESULT(QUORVEL_CALL*)(SlotRecorder* self);
  static constexpr std::size_t kMost = 64;

  template <std::size_t Index>
  static HRESULT QUORVEL_CALL Record(SlotRecorder* self) noexcept {
    self->m_last = Index;
    return S_OK;
  }
  template <std::size_t... Index>
  static const Slot* Slots(std::index_sequence<Index...>) noexcept {
    static constexpr std::array<Slot, sizeof...(Index)> slots{&Record<Index>...};
    return slots.data();
  }

  const Slot* m_table = Slots(std::make_index_sequence<kMost>{});
  std::size_t m_last = kMost;
};

TEST(Contract, MemberTablesMatchTheIdlAndCallTheSlotOfTheirRow) {
  constexpr std::size_t kDispatchOperations = 7;
  Rows tables;
  for (const PublishedClass& published : PublishedClasses()) {
    std::vector<std::string>& rows = tables[com::FromWide(published.interfaceName)];
    for (const com::Member& member : published.members) {
      SlotRecorder recorder;
      std::vector<VARIANT> arguments(member.types.size() + 1);
      VARIANT result{};
      member.call(recorder.AsObject(), arguments.data(), result);
      EXPECT_EQ(recorder.Last(), kDispatchOperations + rows.size()) << com::FromWide(member.name);
      rows.push_back(TableRow(member));
    }
  }
  EXPECT_EQ(tables, IdlRows());
}

TEST(Contract, HeaderAndClassesUseTheIdentifiersOfTheIdl) {
  std::map<std::string, std::string> used{{"library Quorvel", com::TextOf(LIBID_Quorvel)}};
  for (const PublishedClass& published : PublishedClasses()) {
    used["interface " + com::FromWide(published.interfaceName)] = com::TextOf(published.interfaceId);
    used["coclass " + com::FromWide(published.name)] = com::TextOf(published.classId);
  }
  static const std::regex pattern(R"(uuid\(([-0-9A-F]+)\)[^\]]*\]\s*((?:library|interface|coclass) \w+))");
  const std::string text = ReadIdl();
  std::map<std::string, std::string> idl;
  for (const std::smatch& match : AllOf(text, pattern)) idl[match[2]] = '{' + match[1].str() + '}';
  EXPECT_EQ(used, idl);
}

TEST(Contract, EnumerationHasTheSameValuesInHeaderAndIdl) {
  const std::string text = ReadIdl();
  std::smatch match;
  ASSERT_TRUE(std::regex_search(text, match, std::regex(R"(enum EditBehavior[^{]*\{([^}]*)\})")));
  EXPECT_EQ(std::regex_replace(match[1].str(), std::regex("\\s"), ""),
            "AutoSaveOnClose=0,NoAutoSave=1,PromptForSave=2");
  EXPECT_EQ((std::vector<int>{AutoSaveOnClose, NoAutoSave, PromptForSave}), (std::vector<int>{0, 1, 2}));
}

}  // namespace
}  // namespace quorvel::published
