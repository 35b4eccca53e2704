#include <benchmark/benchmark.h>

#include "bench/BareSqlite.h"
#include "bench/BenchDatabase.h"
#include "runtime/RemarkContext.h"

namespace quorvel::bench {
namespace {

void Load(benchmark::State& state) {
  DatabaseFile();
  const auto context = RemarkContext::Create();
  const std::string owner = OwnerOf(state.range(0));
  for ([[maybe_unused]] auto _ : state) context->Load(kContext, owner, kUser);
  if (context->MemoCount() != state.range(0)) state.SkipWithError("wrong number of remarks");
  state.SetItemsProcessed(state.iterations() * state.range(0));
  context->Dispose();
}

void BareLoad(benchmark::State& state) {
  BareSqlite bare(DatabaseFile());
  const std::string owner = OwnerOf(state.range(0));
  BareSqlite::Context context;
  for ([[maybe_unused]] auto _ : state) bare.Load(kContext, owner, kUser, context);
  if (static_cast<std::int64_t>(context.memos.size()) != state.range(0)) state.SkipWithError("wrong number of remarks");
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(Load)->Arg(10)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BareLoad)->Arg(10)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quorvel::bench
