#include "bench/LoadedRemarks.h"

#include <map>

#include "bench/BenchDatabase.h"

namespace quorvel::bench {

const LoadedRemarks& Remarks(std::int64_t count) {
  static std::map<std::int64_t, LoadedRemarks> all;
  const auto [found, isNew] = all.try_emplace(count);
  LoadedRemarks& loaded = found->second;
  if (isNew) {
    DatabaseFile();
    loaded.context->Load(kContext, OwnerOf(count), kUser);
    for (std::int64_t i = 1; i <= count; ++i) {
      const auto remark = loaded.context->RemarkList()->Item(i);
      loaded.structs.push_back(
          {remark->MemoKey(), remark->TypeCaption(), remark->DateStamp(), remark->UserID(), remark->MemoText()});
    }
  }
  return loaded;
}

}  // namespace quorvel::bench
