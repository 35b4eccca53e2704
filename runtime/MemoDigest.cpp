#include "runtime/MemoDigest.h"

#include <functional>
#include <string>

#include "platform/Text.h"

namespace quorvel {

std::uint32_t MemoDigest(std::string_view typeID, std::string_view userID, std::string_view memoText) {
  const std::string type = FoldCase(TrimBlanks(typeID));
  std::uint64_t hash = 0;
  for (const std::string_view value : {std::string_view(type), TrimBlanks(userID), TrimBlanks(memoText)}) {
    hash = hash * 31 + std::hash<std::string_view>{}(value);
  }
  return static_cast<std::uint32_t>(hash ^ (hash >> 32)) | 1;
}

}  // namespace quorvel
