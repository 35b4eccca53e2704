#include "admin/window/BoundLists.h"

#include <algorithm>

#include <wx/listbox.h>

#include "admin/window/SearchCombo.h"
#include "platform/Text.h"
#include "platform/wx/Text.h"

namespace quorvel {

BoundList::BoundList() = default;
BoundList::~BoundList() = default;

void BoundList::Attach(wxListBox& box, Order order) {
  m_box = &box;
  m_order = order;
}

void BoundList::Clear() {
  m_items.clear();
  m_box->Clear();
}

void BoundList::Add(std::string_view text, std::int32_t datum) {
  const auto isBefore = [](std::string_view added, const std::unique_ptr<Item>& item) {
    return CompareIgnoringCase(added, item->text) < 0;
  };
  const auto place =
      m_order == Order::AsFilled ? m_items.end() : std::upper_bound(m_items.begin(), m_items.end(), text, isBefore);
  const auto index = static_cast<unsigned>(place - m_items.begin());
  m_items.insert(place, std::make_unique<Item>(Item{std::string(text), datum}));
  m_box->Insert(ui::ToWx(text), index);
}

void BoundList::Remove(std::int32_t index) {
  m_items.erase(m_items.begin() + index);
  m_box->Delete(static_cast<unsigned>(index));
}

std::int32_t BoundList::ListIndex() const { return m_box->GetSelection(); }

void BoundList::SetListIndex(std::int32_t index) {
  if (index < 0 || index >= Count()) return m_box->SetSelection(wxNOT_FOUND);
  m_box->SetSelection(index);
  m_box->EnsureVisible(index);
}

void BoundCombo::Clear() {
  m_data.clear();
  m_box->Clear();
  m_box->SetSelection(wxNOT_FOUND);
}

void BoundCombo::Add(std::string_view text, std::int32_t datum) {
  m_box->Append(ui::ToWx(text));
  m_data.push_back(datum);
}

void BoundCombo::Remove(std::int32_t index) {
  m_box->Delete(static_cast<unsigned>(index));
  m_data.erase(m_data.begin() + index);
}

std::string BoundCombo::Text(std::int32_t index) const {
  return ui::FromWx(m_box->GetString(static_cast<unsigned>(index)));
}

std::int32_t BoundCombo::ListIndex() const { return m_data.empty() ? wxNOT_FOUND : m_box->GetSelection(); }

void BoundCombo::SetListIndex(std::int32_t index) {
  m_box->SetSelection(index >= 0 && index < Count() ? index : wxNOT_FOUND);
}

std::string BoundCombo::CurrentText() const { return ui::FromWx(m_box->GetValue()); }

}  // namespace quorvel
