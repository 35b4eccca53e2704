#include "remark_ui/RemarkRows.h"

#include <algorithm>
#include <array>
#include <utility>

#include "runtime/RemarkContext.h"

namespace quorvel {
namespace {

struct RemarkColumn {
  const char* key;
  const char* caption;
  std::int32_t width;
  bool visible;
  CellFormat format;
  Value (*read)(const Remark& remark);
};

/// In the order of their numbers, beginning with 1.
constexpr std::array<RemarkColumn, 5> kColumns = {{
    {"MemoKey", "MemoKey", 7, false, CellFormat::General,
     [](const Remark& remark) -> Value { return std::int64_t{remark.MemoKey()}; }},
    {"TypeCaption", "Type", 112, false, CellFormat::General,
     [](const Remark& remark) -> Value { return remark.TypeCaption(); }},
    {"DateStamp", "Date", 73, true, CellFormat::ShortDate,
     [](const Remark& remark) -> Value { return remark.DateStamp(); }},
    {"UserID", "UserID", 83, true, CellFormat::General, [](const Remark& remark) -> Value { return remark.UserID(); }},
    {"MemoText", "Remark", 377, true, CellFormat::General,
     [](const Remark& remark) -> Value { return remark.MemoText(); }},
}};

std::shared_ptr<const RemarkList::Collection> ItemsOf(const std::shared_ptr<const RemarkContext>& context) noexcept {
  const auto list = context ? context->RemarkList() : nullptr;
  return list ? list->Items() : nullptr;
}

}  // namespace

std::vector<GridColumn> RemarkRows::Columns() {
  std::vector<GridColumn> columns;
  columns.reserve(kColumns.size());
  for (const RemarkColumn& each : kColumns) {
    columns.push_back({each.key, each.caption, each.width, each.visible, each.format});
  }
  return columns;
}

std::vector<std::int32_t> RemarkRows::ColumnOrder() { return {1, kDateColumn, kTypeColumn, 4, 5}; }

void RemarkRows::SetContext(std::shared_ptr<const RemarkContext> context) {
  m_context = std::move(context);
  Read();
}

void RemarkRows::Read() {
  const auto items = ItemsOf(m_context);
  m_remarks = items ? *items : RemarkList::Collection{};
}

bool RemarkRows::IsUpToDate() const noexcept {
  const auto items = ItemsOf(m_context);
  return items ? *items == m_remarks : m_remarks.empty();
}

// Only a user who may read every kind can be told that there are none.
std::string RemarkRows::EmptyText() const {
  const auto types = m_context ? m_context->Types() : nullptr;
  const bool readsAll = types && !types->All().empty() &&
                        std::ranges::all_of(types->All(), [](const auto& type) { return type->CanRead() > 0; });
  return readsAll ? "There are no remarks." : "There are no remarks that you may read.";
}

std::int32_t RemarkRows::RowCount() const { return static_cast<std::int32_t>(m_remarks.size()); }

std::shared_ptr<Remark> RemarkRows::RemarkAt(std::int32_t rowIndex) const noexcept {
  const auto index = static_cast<std::size_t>(rowIndex) - 1;
  return index < m_remarks.size() ? m_remarks[index] : nullptr;
}

std::int32_t RemarkRows::RowOf(const std::shared_ptr<Remark>& remark) const {
  return RemarkList::PositionIn(m_remarks, remark);
}

std::string RemarkRows::MarkOf(std::int32_t rowIndex) const {
  const auto remark = RemarkAt(rowIndex);
  return remark && remark->Dirty() ? "Not yet in the database" : "";
}

Value RemarkRows::At(std::int32_t rowIndex, std::int32_t column) const {
  const auto remark = RemarkAt(rowIndex);
  const auto index = static_cast<std::size_t>(column) - 1;
  return remark && index < kColumns.size() ? kColumns[index].read(*remark) : Null{};
}

}  // namespace quorvel
