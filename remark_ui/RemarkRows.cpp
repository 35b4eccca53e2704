#include "remark_ui/RemarkRows.h"

#include <utility>

#include "runtime/RemarkContext.h"

namespace quorvel {

void RemarkRows::SetContext(std::shared_ptr<const RemarkContext> context) noexcept { m_context = std::move(context); }

std::int32_t RemarkRows::RowCount() const { return m_context ? m_context->MemoCount() : 0; }

Value RemarkRows::At(std::int32_t rowIndex, std::int32_t column) const {
  const auto list = m_context ? m_context->RemarkList() : nullptr;
  const auto remark = list ? list->Item(std::int64_t{rowIndex}) : nullptr;
  if (!remark) return Null{};
  switch (column) {
    case 1:
      return std::int64_t{remark->MemoKey()};
    case 2:
      return remark->TypeCaption();
    case 3:
      return remark->DateStamp();
    case 4:
      return remark->UserID();
    case 5:
      return remark->MemoText();
    default:
      return Null{};
  }
}

}  // namespace quorvel
