#include "admin/window/BoundLists.h"

#include <algorithm>

#include <wx/arrstr.h>
#include <wx/listbox.h>

#include "admin/window/SearchCombo.h"
#include "platform/Text.h"
#include "platform/wx/Text.h"

namespace quorvel {
namespace {

constexpr auto IsBefore = [](const auto& left, const auto& right) {
  return CompareIgnoringCase(left.text, right.text) < 0;
};

}  // namespace

void BoundList::Attach(wxListBox& box, Order order) {
  m_box = &box;
  m_order = order;
  m_search.Attach(box);
}

void BoundList::Clear() {
  m_items.clear();
  m_shown = 0;
  m_box->Clear();
}

void BoundList::Add(std::string_view text, std::int32_t datum) {
  if (m_shown == m_items.size()) m_box->CallAfter([this] { ShowAdded(); });
  m_items.push_back({std::string(text), datum});
}

void BoundList::Remove(std::int32_t index) {
  ShowAdded();
  m_items.erase(m_items.begin() + index);
  m_shown = m_items.size();
  m_box->Delete(static_cast<unsigned>(index));
}

std::int32_t BoundList::ListIndex() const {
  ShowAdded();
  return m_box->GetSelection();
}

void BoundList::SetListIndex(std::int32_t index) {
  ShowAdded();
  if (index < 0 || index >= Count()) return m_box->SetSelection(wxNOT_FOUND);
  m_box->SetSelection(index);
  m_box->EnsureVisible(index);
}

const BoundList::Item& BoundList::At(std::int32_t index) const {
  ShowAdded();
  return m_items.at(static_cast<std::size_t>(index));
}

void BoundList::ShowAdded() const {
  const std::size_t added = m_items.size() - m_shown;
  if (added == 0) return;
  if (m_shown > 0 && added == 1) {
    ShowOne();
  } else {
    ShowAll();
  }
  m_shown = m_items.size();
}

void BoundList::ShowOne() const {
  const auto last = m_items.end() - 1;
  const auto place = m_order == Order::AsFilled ? last : std::upper_bound(m_items.begin(), last, *last, IsBefore);
  m_box->Insert(ui::ToWx(last->text), static_cast<unsigned>(place - m_items.begin()));
  std::rotate(place, last, m_items.end());
}

void BoundList::ShowAll() const {
  if (m_order == Order::Alphabetical) std::ranges::stable_sort(m_items, IsBefore);
  wxArrayString texts;
  texts.reserve(m_items.size());
  for (const Item& item : m_items) texts.Add(ui::ToWx(item.text));
  m_box->Set(texts);
}

void BoundCombo::Clear() {
  m_data.clear();
  m_box->RemoveAll();
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
