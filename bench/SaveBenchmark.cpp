#include <benchmark/benchmark.h>

#include "bench/BareSqlite.h"
#include "bench/BenchDatabase.h"
#include "runtime/RemarkContext.h"

namespace quorvel::bench {
namespace {

constexpr std::int64_t kChanged = 1'000;

void Save(benchmark::State& state) {
  DatabaseFile();
  const auto context = RemarkContext::Create();
  context->Load(kContext, OwnerOf(kChanged), kUser);
  for ([[maybe_unused]] auto _ : state) {
    for (const auto& remark : *context->RemarkList()->Items()) remark->SetDirty(true);
    context->Save(true);
  }
  state.SetItemsProcessed(state.iterations() * kChanged);
  context->Dispose();
}

void BareSave(benchmark::State& state) {
  BareSqlite bare(DatabaseFile());
  BareSqlite::Context context;
  bare.Load(kContext, OwnerOf(kChanged), kUser, context);
  for ([[maybe_unused]] auto _ : state) {
    for (const auto& memo : context.memos) bare.Update(context, memo);
  }
  state.SetItemsProcessed(state.iterations() * kChanged);
}

BENCHMARK(Save)->Arg(kChanged)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(BareSave)->Arg(kChanged)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace
}  // namespace quorvel::bench
