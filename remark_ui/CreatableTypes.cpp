#include "remark_ui/CreatableTypes.h"

#include "runtime/RemarkContext.h"

namespace quorvel {

std::vector<TypeChoice> CreatableTypes(const RemarkContext& context) {
  std::vector<TypeChoice> choices;
  const auto& types = context.Types();
  if (!types) return choices;
  std::int32_t position = 0;
  for (const auto& type : types->All()) {
    ++position;
    if (type->CanCreate() != 0) choices.push_back({type->Caption(), position});
  }
  return choices;
}

}  // namespace quorvel
