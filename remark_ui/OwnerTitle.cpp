#include "remark_ui/OwnerTitle.h"

#include <fmt/format.h>

#include "runtime/RemarkContext.h"

namespace quorvel {

std::string OwnerTitle(const RemarkContext& context) {
  return fmt::format("{} [{}] {} Remarks [{}]", context.OwnerName(), context.OwnerID(), context.EntityName(),
                     context.Server());
}

}  // namespace quorvel
