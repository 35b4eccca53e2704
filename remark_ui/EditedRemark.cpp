// The user's rights and the input decide the RemarkDisplay, which the controls only copy. Save changes last what makes
// the remark differ from the input, so that it can be repeated after an error.

#include "remark_ui/EditedRemark.h"

#include <algorithm>
#include <utility>

#include "data/modUserName.h"
#include "platform/CurrentPrompts.h"
#include "platform/Error.h"
#include "platform/ShortDate.h"
#include "platform/Text.h"
#include "platform/wx/BoxText.h"
#include "runtime/RemarkContext.h"
#include "runtime/RemarkRights.h"

namespace quorvel {

void EditedRemark::Show(const std::shared_ptr<Remark>& remark) {
  const auto& list = m_context.RemarkList();
  m_remark = list ? list->ItemFor(remark) : nullptr;
  m_isNew = false;
  m_display = {};
  m_display.remark = m_remark.get();
  if (!m_remark) return;
  const RemarkRights rights = RightsOnRemark(m_context, list->Index(m_remark), modUserName::GetUserName());
  m_display.text = ShownText(m_remark->MemoText());
  m_display.isLocked = !rights.canUpdate;
  m_display.canSave = rights.canUpdate;
  m_display.canDelete = rights.canDelete;
  m_display.caption = rights.canUpdate ? "Edit Remark" : "View Remark";
  m_display.stamp = m_remark->UserID() + ", " + FormatDateWithTime(m_remark->DateStamp());
  if (rights.canDelete) {
    OfferTypes([&](const TypeChoice& choice) { return EqualIgnoringCase(choice.caption, m_remark->TypeCaption()); });
  } else {  // changing the type takes the remark away from its old type, as deleting does
    m_display.types = {{m_remark->TypeCaption(), 0}};
    m_display.selectedType = 0;
  }
}

template <typename IsSelected>
void EditedRemark::OfferTypes(const IsSelected& isSelected) {
  m_display.canChooseType = true;
  m_display.types = CreatableTypes(m_context);
  const auto begin = m_display.types.begin();
  const auto selected = std::find_if(begin, m_display.types.end(), isSelected);
  m_display.selectedType.reset();
  if (selected != m_display.types.end()) m_display.selectedType = static_cast<std::size_t>(selected - begin);
}

void EditedRemark::ShowNew(std::shared_ptr<RemarkType> type, std::int32_t typePosition) {
  m_remark = std::make_shared<Remark>();
  m_remark->SetRemarkType(std::move(type));
  m_isNew = true;
  m_display.remark = m_remark.get();
  m_display.text.clear();
  m_display.isLocked = false;
  m_display.canDelete = true;  // it is only forgotten
  OfferTypes([&](const TypeChoice& choice) { return choice.position == typePosition; });
  m_display.canSave = true;
  m_display.caption = "Edit Remark";
  m_display.stamp.clear();
}

void EditedRemark::TextEdited() noexcept {
  if (!m_display.isLocked) m_display.canSave = true;
}

void EditedRemark::TypeChosen(const RemarkInput& input) {
  if (!m_remark || !input.type) return;
  m_display.canSave = ChosenType(input) != nullptr || TextOf(input) != m_remark->MemoText();
}

std::string EditedRemark::TextOf(const RemarkInput& input) const {
  return input.isTextTouched ? StoredText(input.text, m_remark->MemoText()) : std::string(m_remark->MemoText());
}

std::shared_ptr<Remark> EditedRemark::Listed() const {
  const auto& list = m_context.RemarkList();
  return list ? list->ItemFor(m_remark) : nullptr;
}

bool EditedRemark::IsListed() const { return Listed() != nullptr; }

bool EditedRemark::IsPending(const RemarkInput& input) const {
  if (!m_remark || !m_display.canSave) return false;
  return m_isNew || input.isTextTouched || ChosenType(input) != nullptr;
}

// A user who may not delete must not be sent to a button that is disabled.
void EditedRemark::RefuseEmptyText() const {
  CurrentPrompts().ShowMessage(m_display.canDelete ? "Empty remarks not permitted.  Use delete to erase a remark"
                                                   : "Empty remarks not permitted.",
                               "Can Not Save", PromptButtons::Ok, PromptIcon::Exclamation);
}

std::shared_ptr<RemarkType> EditedRemark::ChosenType(const RemarkInput& input) const {
  const auto& shown = m_display.selectedType;
  // The remark may have got another type meanwhile. The user has not chosen the one that is still shown.
  if (input.type && shown && *input.type == m_display.types[*shown]) return nullptr;
  // No type is selected when the user may not create remarks of the remark's own type; the remark then keeps it.
  if (!input.type || EqualIgnoringCase(input.type->caption, m_remark->TypeCaption())) return nullptr;
  return m_context.Item(std::int64_t{input.type->position});
}

EditedRemark::Outcome EditedRemark::Save(const RemarkInput& input) {
  if (!m_remark) return Outcome::Nothing;
  if (TrimBlanks(input.text).empty()) {
    RefuseEmptyText();
    return Outcome::Nothing;
  }
  std::string text = TextOf(input);
  std::shared_ptr<RemarkType> type = ChosenType(input);
  std::string loginName = modUserName::GetUserName();
  const auto& list = m_context.RemarkList();
  if (!list) ThrowObjectNotSet();
  // A remark that was only looked at stays out of a list that the host has read again meanwhile, and a text that was
  // not touched does not replace the one that the list has now.
  const bool isOtherText = text != m_remark->MemoText();
  const bool isChanged = type || isOtherText;
  if (isChanged) {
    m_remark = list->Keep(m_remark);
    m_remark->SetUserID(std::move(loginName));
    if (type) m_remark->SetRemarkType(std::move(type));
    if (isOtherText) m_remark->SetMemoText(std::move(text));
    m_remark->SetDateStamp(Now());
    m_remark->SetDirty(true);
    m_isNew = false;
  }
  m_display.canSave = false;
  return isChanged ? Outcome::Changed : Outcome::Unchanged;
}

EditedRemark::Outcome EditedRemark::CommitPending(const RemarkInput& input) {
  if (!m_display.canSave || TrimBlanks(input.text).empty()) return Outcome::Nothing;
  return Save(input);
}

void EditedRemark::Remove() {
  if (const auto listed = Listed()) {
    const auto& list = m_context.RemarkList();
    list->Remove(std::int64_t{list->Index(listed)});
  }
  Show(nullptr);
}

}  // namespace quorvel
