#include "runtime/published/PublishedClasses.h"

#include <array>

#include "runtime/published/PublishedRemark.h"
#include "runtime/published/PublishedRemarkContext.h"
#include "runtime/published/PublishedRemarkList.h"
#include "runtime/published/PublishedRemarkType.h"

namespace quorvel::published {

std::span<const PublishedClass> PublishedClasses() noexcept {
  static const std::array<PublishedClass, 4> classes{RemarkTypeClass(), RemarkClass(), RemarkContextClass(),
                                                     RemarkListClass()};
  return classes;
}

}  // namespace quorvel::published
