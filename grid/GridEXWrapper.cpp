#include "grid/GridEXWrapper.h"

#include <cmath>
#include <utility>

#include "ado/Recordset.h"
#include "data/modError.h"
#include "grid/DataGrid.h"
#include "platform/Error.h"

namespace quorvel {
namespace {

constexpr std::string_view kModule = "GridEXWrapper";
constexpr std::int16_t kTab = 9;
constexpr std::int16_t kEnter = 13;

bool IsData(GridArea area) noexcept {
  return area != GridArea::ColumnHeader && area != GridArea::RowHeader && area != GridArea::ColumnSeparator &&
         area != GridArea::Nowhere;
}

}  // namespace

GridEXWrapper::GridEXWrapper(std::function<void(std::string_view)> sendKeys) : m_sendKeys(std::move(sendKeys)) {}

GridEXWrapper::~GridEXWrapper() { SetGrid(nullptr); }

void GridEXWrapper::SetGrid(DataGrid* grid) {
  if (m_oGrid != nullptr) m_oGrid->Watch(nullptr);
  m_oGrid = grid;
  if (m_oGrid != nullptr) m_oGrid->Watch(this);
}

void GridEXWrapper::SyncRecordset() noexcept {
  try {
    const std::int32_t index = RowIndex();
    if (index <= 0) return;
    const std::int32_t bookmark = m_oGrid->Bookmark(index);
    if (ado::Recordset* const recordset = m_oGrid->BoundRecordset()) recordset->SetBookmark(bookmark);
  } catch (...) {
    // The user only moves in the grid: a recordset that does not follow is no reason to disturb that.
  }
}

std::int32_t GridEXWrapper::RowIndex() const {
  try {
    if (m_oGrid == nullptr) ThrowObjectNotSet();
    return m_oGrid->RowIndex(m_oGrid->CurrentLine());
  } catch (...) {
    modError::RaiseError(kModule, "RowIndex");
  }
}

Value GridEXWrapper::Value(std::string_view column) noexcept {
  try {
    SyncRecordset();
    if (RowIndex() < 1) return {};
    const ado::Recordset* const recordset = m_oGrid->BoundRecordset();
    return recordset != nullptr ? recordset->Fields(column).Value() : quorvel::Value();
  } catch (...) {
    return {};
  }
}

void GridEXWrapper::KeyDown(std::int16_t& keyCode, std::int16_t& shift) {
  try {
    if (keyCode == kEnter && RowIndex() != 0) {
      keyCode = 0;
      if (RowChosen) RowChosen();
    } else if (shift == 0 && keyCode == kTab) {
      m_sendKeys("^{TAB}");
    }
  } catch (...) {
    modError::RaiseError(kModule, "m_oGrid_KeyDown");
  }
}

void GridEXWrapper::MouseDown(std::int16_t button, std::int16_t shift, double x, double y) {
  m_button = button;
  m_shift = shift;
  m_x = static_cast<std::int32_t>(std::nearbyint(x));
  m_y = static_cast<std::int32_t>(std::nearbyint(y));
}

void GridEXWrapper::DoubleClick() {
  try {
    if (RowIndex() == 0) return;
    if (IsData(m_oGrid->HitTest(m_x, m_y)) && RowChosen) RowChosen();
  } catch (...) {
    modError::RaiseError(kModule, "m_oGrid_DblClick");
  }
}

}  // namespace quorvel
