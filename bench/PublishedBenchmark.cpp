// Measures the cost of the published interfaces: early-bound calls, calls by name, and For Each.

#include <benchmark/benchmark.h>
#include <quorvel/quorvel.h>

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/BenchDatabase.h"
#include "runtime/RemarkContext.h"

namespace quorvel::bench {
namespace {

constexpr std::int64_t kRemarks = 10'000;

void Require(bool condition) {
  if (!condition) throw std::runtime_error("a call through the boundary failed");
}

Quorvel::BSTR Widen(const std::string& text) {
  const Quorvel::BSTR wide = Quorvel::SysAllocStringLen(nullptr, static_cast<Quorvel::UINT>(text.size()));
  std::copy(text.begin(), text.end(), wide);
  return wide;
}

/// The remarks as a host holds them.
class Host {
 public:
  Host() {
    DatabaseFile();
    void* created = nullptr;
    Require(QuorvelCreate(u"Quorvel.RemarkContext", Quorvel::IID__RemarkContext, &created) == Quorvel::S_OK);
    m_context = static_cast<Quorvel::_RemarkContext*>(created);
    const Quorvel::BSTR texts[] = {Widen(kContext), Widen(OwnerOf(kRemarks)), Widen(kUser)};
    Require(m_context->Load(texts[0], texts[1], texts[2]) == Quorvel::S_OK);
    for (const Quorvel::BSTR text : texts) Quorvel::SysFreeString(text);
    Require(m_context->get_RemarkList(&m_list) == Quorvel::S_OK);
  }
  ~Host() {
    for (Quorvel::_Remark* remark : m_remarks) remark->Release();
    m_list->Release();
    m_context->Dispose();
    m_context->Release();
  }
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  [[nodiscard]] Quorvel::_RemarkList* List() const { return m_list; }
  [[nodiscard]] Quorvel::_Remark* At(Quorvel::LONG position) const {
    Quorvel::VARIANT index;
    Quorvel::VariantInit(&index);
    index.vt = Quorvel::VT_I4;
    index.lVal = position;
    Quorvel::_Remark* remark = nullptr;
    m_list->get_Item(&index, &remark);
    return remark;
  }
  /// All remarks, held until the end.
  const std::vector<Quorvel::_Remark*>& Remarks() {
    for (auto i = static_cast<Quorvel::LONG>(m_remarks.size()); i < kRemarks; ++i) m_remarks.push_back(At(i + 1));
    return m_remarks;
  }

 private:
  Quorvel::_RemarkContext* m_context = nullptr;
  Quorvel::_RemarkList* m_list = nullptr;
  std::vector<Quorvel::_Remark*> m_remarks;
};

/// Each remark's text through the table of operations.
void ReadTexts(benchmark::State& state) {
  Host host;
  const auto& remarks = host.Remarks();
  for ([[maybe_unused]] auto _ : state) {
    for (Quorvel::_Remark* remark : remarks) {
      Quorvel::BSTR text = nullptr;
      remark->get_MemoText(&text);
      benchmark::DoNotOptimize(*text);
      Quorvel::SysFreeString(text);
    }
  }
}

void RuntimeTexts(benchmark::State& state) {
  DatabaseFile();
  const auto context = RemarkContext::Create();
  context->Load(kContext, OwnerOf(kRemarks), kUser);
  const auto remarks = context->RemarkList()->Items();
  for ([[maybe_unused]] auto _ : state) {
    for (const auto& remark : *remarks) {
      const Quorvel::BSTR text = Widen(remark->MemoText());
      benchmark::DoNotOptimize(*text);
      Quorvel::SysFreeString(text);
    }
  }
  context->Dispose();
}

void ReadTextsByName(benchmark::State& state) {
  Host host;
  const auto& remarks = host.Remarks();
  auto* name = const_cast<Quorvel::LPOLESTR>(u"MemoText");
  Quorvel::DISPID id = Quorvel::DISPID_UNKNOWN;
  Require(remarks.front()->GetIDsOfNames(Quorvel::IID_NULL, &name, 1, 0, &id) == Quorvel::S_OK);
  for ([[maybe_unused]] auto _ : state) {
    for (Quorvel::_Remark* remark : remarks) {
      Quorvel::DISPPARAMS none{};
      Quorvel::EXCEPINFO exception{};
      Quorvel::VARIANT text;
      Quorvel::VariantInit(&text);
      remark->Invoke(id, Quorvel::IID_NULL, 0, Quorvel::DISPATCH_METHOD | Quorvel::DISPATCH_PROPERTYGET, &none, &text,
                     &exception, nullptr);
      benchmark::DoNotOptimize(*text.bstrVal);
      Quorvel::VariantClear(&text);
    }
  }
}

/// Steps through the list one remark at a time, as For Each does.
void Enumerate(benchmark::State& state) {
  const Host host;
  for ([[maybe_unused]] auto _ : state) {
    Quorvel::IUnknown* unknown = nullptr;
    void* found = nullptr;
    Require(host.List()->get_NewEnum(&unknown) == Quorvel::S_OK);
    Require(unknown->QueryInterface(Quorvel::IID_IEnumVARIANT, &found) == Quorvel::S_OK);
    unknown->Release();
    auto* remarks = static_cast<Quorvel::IEnumVARIANT*>(found);
    std::int64_t count = 0;
    Quorvel::VARIANT remark;
    Quorvel::VariantInit(&remark);
    for (; remarks->Next(1, &remark, nullptr) == Quorvel::S_OK; ++count) Quorvel::VariantClear(&remark);
    remarks->Release();
    if (count != kRemarks) state.SkipWithError("wrong number of remarks");
  }
}

void WalkByPosition(benchmark::State& state) {
  const Host host;
  for ([[maybe_unused]] auto _ : state) {
    std::int64_t count = 0;
    for (; Quorvel::_Remark* remark = host.At(static_cast<Quorvel::LONG>(count + 1)); ++count) remark->Release();
    if (count != kRemarks) state.SkipWithError("wrong number of remarks");
  }
}

// Each is measured against the benchmark that is registered as its Bare: texts against the runtime's getter and a copy,
// calls by name against early-bound calls, For Each against positions.
BENCHMARK(ReadTexts)->Unit(benchmark::kMicrosecond);
BENCHMARK(RuntimeTexts)->Name("BareReadTexts")->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadTextsByName)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadTexts)->Name("BareReadTextsByName")->Unit(benchmark::kMicrosecond);
BENCHMARK(Enumerate)->Unit(benchmark::kMicrosecond);
BENCHMARK(WalkByPosition)->Name("BareEnumerate")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quorvel::bench
