// Items, removed remarks and the backup of both are shared collections, so that Restore can make the backup live.

#include "runtime/RemarkList.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "data/modDatabase.h"
#include "platform/Error.h"

namespace quorvel {
namespace {

using Collection = RemarkList::Collection;

std::shared_ptr<Collection> CopyOf(const std::shared_ptr<Collection>& remarks) {
  auto copy = std::make_shared<Collection>();
  if (!remarks) return copy;
  copy->reserve(remarks->size());
  for (const auto& remark : *remarks) copy->push_back(remark->Copy());
  return copy;
}

bool IsPosition(std::int32_t position, const Collection& remarks) {
  return position >= 1 && static_cast<std::size_t>(position) <= remarks.size();
}

const MemoOwner& RequiredOwner(const ListOrigin& origin, const char* source) {
  if (origin.owner) return *origin.owner;
  throw Error(ErrorNumber::Component, source,
              "The owner of these remarks is not known, because the last Load did not find it");
}

}  // namespace

RemarkList::RemarkList(ListOrigin origin)
    : m_origin(std::move(origin)), m_items(std::make_shared<Collection>()), m_deleted(std::make_shared<Collection>()) {}

RemarkList::~RemarkList() { Clear(false); }

const MemoOwner& RemarkList::Owner(const char* source) const { return RequiredOwner(m_origin, source); }

void RemarkList::RequireTakesNew(const char* source) const {
  if (m_takesNew) return;
  throw Error(ErrorNumber::Component, source,
              "The last Load or new OwnerID failed or goes on, so the remarks of this record were not read");
}

std::shared_ptr<Remark> RemarkList::Item(const Value& i_vIndexKey) const noexcept {
  if (!m_items || IsText(i_vIndexKey)) return nullptr;
  try {
    const std::int32_t position = ToInt32(i_vIndexKey);
    if (IsPosition(position, *m_items)) return (*m_items)[static_cast<std::size_t>(position) - 1];
  } catch (...) {  // NOLINT(bugprone-empty-catch): an index that is no number finds no remark
  }
  return nullptr;
}

std::int32_t RemarkList::Count() const noexcept { return m_items ? static_cast<std::int32_t>(m_items->size()) : 0; }

std::int32_t RemarkList::PopupCount() const noexcept {
  if (!m_items) return 0;
  return static_cast<std::int32_t>(
      std::count_if(m_items->begin(), m_items->end(), [](const auto& remark) { return remark->ShowPopup(); }));
}

bool RemarkList::Dirty() const noexcept {
  if (m_deleted && !m_deleted->empty()) return true;
  return m_items && std::any_of(m_items->begin(), m_items->end(), [](const auto& remark) { return remark->Dirty(); });
}

std::int32_t RemarkList::Index(const std::shared_ptr<Remark>& i_oRemark) const noexcept {
  if (!m_items) return 0;
  const auto found = std::find(m_items->begin(), m_items->end(), i_oRemark);
  return found == m_items->end() ? 0 : static_cast<std::int32_t>(found - m_items->begin()) + 1;
}

std::shared_ptr<Remark> RemarkList::ItemFor(const std::shared_ptr<Remark>& remark) const {
  if (Index(remark) > 0) return remark;
  const std::int32_t position = m_items ? PositionIn(*m_items, m_successors.Of(remark)) : 0;
  return position > 0 ? (*m_items)[static_cast<std::size_t>(position) - 1] : nullptr;
}

std::int32_t RemarkList::PositionIn(const Collection& remarks, const std::shared_ptr<Remark>& remark) {
  if (!remark) return 0;
  auto found = std::ranges::find(remarks, remark);
  if (found == remarks.end()) {
    found = std::ranges::find_if(remarks, [&remark](const auto& each) { return each->IsSameMemo(*remark); });
  }
  return found == remarks.end() ? 0 : static_cast<std::int32_t>(found - remarks.begin()) + 1;
}

// Restore pairs copies with originals by position, so an error must leave the former backup whole.
void RemarkList::Backup() {
  auto items = CopyOf(m_items);
  auto deleted = CopyOf(m_deleted);
  Collection originals;
  for (const auto& each : {m_items, m_deleted}) {
    if (each) originals.insert(originals.end(), each->begin(), each->end());
  }
  m_successors.Reserve(originals.size());
  m_backupItems = std::move(items);
  m_backupDeleted = std::move(deleted);
  m_originals = std::move(originals);
}

void RemarkList::Restore() noexcept {
  m_items = m_backupItems;
  m_deleted = m_backupDeleted;
  auto original = m_originals.begin();
  for (const auto& copies : {m_items, m_deleted}) {
    for (std::size_t i = 0; original != m_originals.end() && i < copies->size(); ++i, ++original) {
      (*copies)[i]->FollowOriginal(**original);
      m_successors.Add(*original, (*copies)[i]);
    }
  }
  m_originals.clear();
  m_successors.RemoveUnused();
}

std::shared_ptr<Remark> RemarkList::Add() {
  RequireTakesNew("RemarkList.Add");
  return AddRead();
}

std::shared_ptr<Remark> RemarkList::AddRead() {
  auto remark = std::make_shared<Remark>();
  Append(remark);
  return remark;
}

void RemarkList::AddRemark(std::shared_ptr<Remark> i_oRemark) {
  RequireTakesNew("RemarkList.AddRemark");
  Append(std::move(i_oRemark));
}

std::shared_ptr<Remark> RemarkList::Keep(const std::shared_ptr<Remark>& remark) {
  if (!m_items) Clear();
  auto kept = ItemFor(remark);
  if (!kept) {
    kept = m_successors.Of(remark);
    const std::int32_t removed = PositionIn(*m_deleted, kept);
    if (removed > 0) kept = (*m_deleted)[static_cast<std::size_t>(removed) - 1];
    AddRemark(kept);
  }
  // The next Save would delete the memo that it has just written.
  std::erase_if(*m_deleted, [&kept](const auto& each) { return each == kept || each->IsSameMemo(*kept); });
  return kept;
}

void RemarkList::Append(std::shared_ptr<Remark> remark) {
  if (!m_items || !remark) ThrowObjectNotSet();
  remark->SetListOwner(m_origin.owner);
  m_items->push_back(std::move(remark));
}

void RemarkList::Reserve(std::int32_t count) {
  if (m_items) m_items->reserve(m_items->size() + static_cast<std::size_t>(std::max(count, 0)));
}

// While a statement waits, code of the host may run that changes the list.
void RemarkList::Save() {
  const ListOrigin origin = m_origin;
  const Collection items = m_items ? *m_items : Collection{};
  const modDatabase::KeptParameters parameters;
  for (const auto& remark : items) {
    if (!remark->Dirty()) continue;
    static_cast<void>(RequiredOwner(origin, "RemarkList.Save"));
    remark->CommitFor(origin);
    // An older copy of the database gives keys again that it does not have yet.
    if (modDatabase::LostFiles() == 0) continue;
    for (const auto& other : items) {
      if (other != remark) other->LoseKeyTo(*remark);
    }
  }
  const Collection deleted = m_deleted ? *m_deleted : Collection{};
  for (const auto& remark : deleted) remark->Delete();
  if (!m_deleted) return;
  auto removedMeanwhile = std::make_shared<Collection>();
  std::ranges::copy_if(*m_deleted, std::back_inserter(*removedMeanwhile),
                       [&](const auto& each) { return std::ranges::find(deleted, each) == deleted.end(); });
  m_deleted = std::move(removedMeanwhile);
}

void RemarkList::Remove(const Value& i_vIndexKey) {
  if (!m_items || !m_deleted) ThrowObjectNotSet();
  if (IsText(i_vIndexKey)) ThrowInvalidCall();
  const std::int32_t position = ToInt32(i_vIndexKey);
  if (!IsPosition(position, *m_items)) ThrowSubscriptOutOfRange();
  const auto item = m_items->begin() + (position - 1);
  m_deleted->push_back(*item);
  m_items->erase(item);
}

void RemarkList::Clear(bool i_bRecreateCollection) {
  auto items = i_bRecreateCollection ? std::make_shared<Collection>() : nullptr;
  m_deleted = i_bRecreateCollection ? std::make_shared<Collection>() : nullptr;
  m_items = std::move(items);
}

}  // namespace quorvel
