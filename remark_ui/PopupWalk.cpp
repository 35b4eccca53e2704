#include "remark_ui/PopupWalk.h"

#include <exception>
#include <utility>

#include <fmt/format.h>

#include "platform/Error.h"
#include "platform/ShortDate.h"
#include "runtime/RemarkContext.h"

namespace quorvel {
namespace {

std::string TypeLine(const Remark& remark) {
  const auto& type = remark.RemarkType();
  if (!type) ThrowObjectNotSet();
  return fmt::format("{}  ({} on {})", type->Caption(), remark.UserID(), FormatShortDate(remark.DateStamp()));
}

template <typename Make>
void FillText(std::string& text, const Make& make) noexcept {
  try {
    text = make();
  } catch (const std::exception&) {  // the rest of the remark is still shown
  }
}

}  // namespace

PopupWalk::PopupWalk(std::shared_ptr<const RemarkContext> context)
    : m_context(std::move(context)), m_popupCount(m_context->PopupCount()) {}

void PopupWalk::Previous() { Move(-1); }

void PopupWalk::Next() { Move(+1); }

void PopupWalk::Move(std::int32_t step) {
  m_popupOrdinal += step;
  do {
    m_listIndex += step;
  } while (!CurrentRemark()->ShowPopup());
}

std::shared_ptr<Remark> PopupWalk::CurrentRemark() const {
  const auto& list = m_context->RemarkList();
  auto remark = list ? list->Item(std::int64_t{m_listIndex}) : nullptr;
  if (!remark) ThrowObjectNotSet();
  return remark;
}

void PopupWalk::Fill(PopupDisplay& display) const noexcept {
  display.previousEnabled = m_listIndex > 1;
  display.previousVisible = m_popupCount > 1;
  display.nextCaption = IsAtEnd() ? "&Finish" : "&Next";
  FillText(display.remark, [this] { return CurrentRemark()->MemoText(); });
  FillText(display.remarkType, [this] { return TypeLine(*CurrentRemark()); });
  FillText(display.counter, [this] { return fmt::format("Remark {} of {}", m_popupOrdinal, m_popupCount); });
}

}  // namespace quorvel
