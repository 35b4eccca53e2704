#include "bench/MemoryUse.h"

#include <malloc.h>

#include "bench/BenchDatabase.h"
#include "runtime/RemarkContext.h"

namespace quorvel::bench {
namespace {

/// Bytes that the whole process has allocated, SQLite's cache included.
std::size_t HeapInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

}  // namespace

double HeapPerRemark() {
  constexpr std::int64_t kRemarks = 10'000;
  DatabaseFile();
  const auto context = RemarkContext::Create();
  // Twice, so that caches and kept statements exist before the measurement begins.
  for (int i = 0; i < 2; ++i) {
    context->Load(kContext, OwnerOf(kRemarks), kUser);
    context->Dispose();
  }
  const std::size_t before = HeapInUse();
  context->Load(kContext, OwnerOf(kRemarks), kUser);
  const std::size_t after = HeapInUse();
  std::size_t text = 0;
  for (const auto& remark : *context->RemarkList()->Items()) text += remark->MemoText().size();
  context->Dispose();
  return static_cast<double>(after - before - text) / static_cast<double>(kRemarks);
}

}  // namespace quorvel::bench
