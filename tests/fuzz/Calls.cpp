// Calls by name on the published objects, as a script host makes them, over a sample database. A line
//     !OBJECT FLAGS MEMBER
// calls a member, by its name or its number, of the object with that position: 0 is a context, 1 a remark, and each
// object that a call delivers is the next one. FLAGS are those of Invoke; 256 takes no result, 512 no error. Each of
// the lines after it, up to the next call, is an argument as GivenValue reads it, with NAME= in front when it is named.
// The value of an argument that is an object is a position.

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/CurrentPrompts.h"
#include "tests/fuzz/FreshDatabase.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/fuzz/GivenValue.h"
#include "tests/support/HostObjects.h"

namespace quorvel::fuzz {
namespace {

using com::Pointer;

constexpr std::size_t kMostObjects = 32;
constexpr std::size_t kMostArguments = 8;

/// A user who answers each second question with yes.
class Answers : public Prompts {
 public:
  PromptAnswer ShowMessage(std::string_view text, std::string_view /*title*/, PromptButtons buttons,
                           PromptIcon /*icon*/) override {
    Require(!text.empty(), "a message has a text");
    if (buttons == PromptButtons::Ok) return PromptAnswer::Ok;
    m_agrees = !m_agrees;
    return m_agrees ? PromptAnswer::Yes : PromptAnswer::No;
  }
  std::optional<std::string> AskText(std::string_view /*prompt*/, std::string_view /*title*/) override {
    return "typed";
  }
  void SetPointer(PointerShape /*shape*/) noexcept override {}

 private:
  bool m_agrees = false;
};

/// The arguments of one call.
class Given {
 public:
  void Add(std::string_view name, std::string_view value, IUnknown* object) {
    if (m_values.size() == kMostArguments) return;
    // Named ones come before the others.
    const std::ptrdiff_t position = name.empty() ? static_cast<std::ptrdiff_t>(m_names.size()) : 0;
    m_values.insert(m_values.begin() + position, std::make_unique<GivenValue>(value, object));
    if (!name.empty()) m_names.emplace(m_names.begin(), name.begin(), name.end());
  }
  /// The identifiers of the member and of the named arguments; those that are not found are DISPID_UNKNOWN.
  [[nodiscard]] std::vector<DISPID> Find(IDispatch& object, std::string_view member) const {
    std::u16string wanted(member.begin(), member.end());
    std::vector<LPOLESTR> names{wanted.data()};
    for (const std::u16string& name : m_names) names.push_back(const_cast<LPOLESTR>(name.c_str()));
    std::vector<DISPID> ids(names.size(), DISPID_UNKNOWN);
    (void)object.GetIDsOfNames(IID_NULL, names.data(), static_cast<UINT>(names.size()), 0x409, ids.data());
    return ids;
  }
  [[nodiscard]] std::vector<VARIANT> Values() const {
    std::vector<VARIANT> values;
    for (const auto& value : m_values) values.push_back(value->Get());
    return values;
  }
  [[nodiscard]] bool IsNamed() const { return !m_names.empty(); }

 private:
  std::vector<std::unique_ptr<GivenValue>> m_values;
  std::vector<std::u16string> m_names;
};

/// A host's objects.
class Host {
 public:
  Host() {
    for (const OLECHAR* name : {OLESTR("Quorvel.RemarkContext"), OLESTR("Quorvel.Remark")}) {
      Require(QuorvelCreate(name, IID_IUnknown, test::PutAny(m_objects.emplace_back())) == S_OK, "an object is made");
    }
  }
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;
  ~Host() {
    for (const auto& object : m_objects) {
      if (const auto context = com::Query<_RemarkContext>(object.Get(), IID__RemarkContext)) context->Dispose();
    }
  }

  [[nodiscard]] IUnknown* At(std::string_view number) const {
    return m_objects[static_cast<std::size_t>(TakeNumber(number)) % m_objects.size()].Get();
  }

  void Call(std::string_view line, const Given& given) {
    const auto object = com::Query<IDispatch>(At(TakeUntil(' ', line)), IID_IDispatch);
    if (!object) return;
    std::string_view number = TakeUntil(' ', line);
    const auto flags = static_cast<WORD>(TakeNumber(number));
    std::vector<DISPID> ids = given.Find(*object.Get(), line);
    DISPID member = ids.front();
    if (member == DISPID_UNKNOWN) member = static_cast<DISPID>(TakeNumber(line));
    ids.erase(ids.begin());
    constexpr WORD kAssigns = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
    std::vector<VARIANT> values = given.Values();
    if ((flags & kAssigns) != 0 && !values.empty() && !given.IsNamed()) ids.push_back(DISPID_PROPERTYPUT);
    DISPPARAMS arguments{values.data(), ids.data(), static_cast<UINT>(values.size()), static_cast<UINT>(ids.size())};
    Invoke(*object.Get(), member, flags, arguments);
  }

 private:
  void Invoke(IDispatch& object, DISPID member, WORD flags, DISPPARAMS& arguments) {
    com::OwnedVariant result;
    test::OwnedException exception;
    UINT wrong = 0;
    const bool takesError = (flags & 512U) == 0;
    const HRESULT invoked = object.Invoke(member, IID_NULL, 0x409, static_cast<WORD>(flags & 0xFFU), &arguments,
                                          (flags & 256U) == 0 ? &result.Get() : nullptr,
                                          takesError ? &exception.info : nullptr, takesError ? &wrong : nullptr);
    if (FAILED(invoked)) Require(result.Get().vt == VT_EMPTY, "a failed call has no result");
    if (invoked == DISP_E_EXCEPTION && takesError) {
      Require(FAILED(exception.info.scode) && SysStringLen(exception.info.bstrDescription) > 0, "an error has a text");
    }
    Keep(result);
  }

  void Keep(com::OwnedVariant& result) {
    const VARTYPE type = result.Get().vt;
    if ((type != VT_DISPATCH && type != VT_UNKNOWN) || result.Get().punkVal == nullptr) return;
    if (m_objects.size() < kMostObjects) m_objects.emplace_back(result.Release().punkVal);
    if (const auto values = com::Query<IEnumVARIANT>(m_objects.back().Get(), IID_IEnumVARIANT)) {
      com::OwnedVariant first;
      ULONG count = 0;
      (void)values->Next(1, &first.Get(), &count);
    }
  }

  std::vector<Pointer<IUnknown>> m_objects;
};

void RunCalls(std::string_view input) {
  Host host;
  while (!input.empty()) {
    std::string_view call = TakeUntil('\n', input);
    if (!call.starts_with('!')) continue;
    Given given;
    while (!input.empty() && !input.starts_with('!')) {
      std::string_view line = TakeUntil('\n', input);
      const std::size_t equals = line.find('=');
      const std::size_t colon = line.find(':');
      const std::string_view name = equals < colon ? TakeUntil('=', line) : std::string_view();
      given.Add(name, line, host.At(line.substr(std::min(line.size(), line.find(':') + 1))));
    }
    host.Call(call.substr(1), given);
  }
}

}  // namespace

void Try(std::string_view input) {
  static FreshDatabase databases(test::TestDatabase::Content::Sample);
  databases.Renew();
  ExchangePrompts(std::make_shared<Answers>());
  RunCalls(input);
  Require(DllCanUnloadNow() == S_OK, "no reference is lost");
}

}  // namespace quorvel::fuzz
