// The rules of a context: what is saved, refused and asked before something is read again. runtime/ContextLoader does
// the reading. While it asks the database, code of the host may dispose of the context, so a load holds types and list.

#include "runtime/RemarkContext.h"

#include <algorithm>

#include "data/modDatabase.h"
#include "data/modUserName.h"
#include "data/modWaitCursor.h"
#include "platform/CurrentPrompts.h"
#include "platform/Error.h"
#include "platform/RaisedFlag.h"
#include "platform/Text.h"
#include "runtime/ContextLoader.h"
#include "runtime/RemarkWindows.h"

namespace quorvel {
namespace {

constexpr const char* kRefreshRemarkList = "RemarkContext.RefreshRemarkList";

}  // namespace

std::shared_ptr<RemarkContext> RemarkContext::Create() { return std::make_shared<RemarkContext>(Private{}); }

void RemarkContext::SetEditBehavior(quorvel::EditBehavior behavior) noexcept {
  m_context.editBehavior = behavior;
  if (m_remarkList) m_remarkList->SetEditBehavior(behavior);
}

void RemarkContext::SetOwnerID(const std::string& ownerID) {
  if (EqualIgnoringCase(ownerID, m_ownerID)) return;
  RefuseWhileEdited("RemarkContext.OwnerID");
  Save(false);
  m_ownerID = ownerID;
  const auto reading = modDatabase::BeginReading();
  LoadMemos();
}

void RemarkContext::SetOwnerKey(std::int32_t ownerKey) {
  RefuseWhileEdited("RemarkContext.OwnerKey");
  m_owner.key = ownerKey;
  if (!m_remarkList) ThrowObjectNotSet();
  // After a failed Load the entity may be that of the record that was not loaded.
  const bool isLoaded = m_loadState == LoadState::Done;
  const auto owner = isLoaded ? std::optional(MemoOwner{m_context.entityKey, ownerKey}) : std::nullopt;
  m_remarkList->Clear(true);
  m_remarkList->SetOrigin(OriginOf(owner));
  m_remarkList->SetTakesNew(m_loadState != LoadState::Failed);
}

std::shared_ptr<RemarkType> RemarkContext::Item(const Value& i_vIndexKey) const noexcept {
  return m_types ? m_types->Item(i_vIndexKey) : nullptr;
}

std::int32_t RemarkContext::TypeCount() const noexcept { return m_types ? m_types->Count() : 0; }

std::int32_t RemarkContext::MemoCount() const noexcept { return m_remarkList ? m_remarkList->Count() : 0; }

std::int32_t RemarkContext::PopupCount() const noexcept { return m_remarkList ? m_remarkList->PopupCount() : 0; }

std::int32_t RemarkContext::CreateableTypes() const noexcept {
  if (!m_types) return 0;
  const auto& types = m_types->All();
  return static_cast<std::int32_t>(
      std::count_if(types.begin(), types.end(), [](const auto& type) { return type->CanCreate() > 0; }));
}

std::string RemarkContext::ConnectionString() const { return modDatabase::Settings().ConnectionString(); }

std::string RemarkContext::Server() const { return modDatabase::Settings().Server(); }

// A negative right counts here, unlike where remarks are shown and types are offered.
bool RemarkContext::CanUpdate(std::int32_t i_lIndex) const {
  const auto type = TypeOfRemark(i_lIndex);
  return type && type->CanUpdate() != 0;
}

bool RemarkContext::CanDelete(std::int32_t i_lIndex) const {
  const auto type = TypeOfRemark(i_lIndex);
  return type && type->CanDelete() != 0;
}

bool RemarkContext::CanCreate(std::int32_t i_lIndex) const {
  const auto type = TypeOfRemark(i_lIndex);
  return type && type->CanCreate() != 0;
}

std::shared_ptr<RemarkType> RemarkContext::TypeOfRemark(std::int32_t index) const {
  const auto remark = m_remarkList ? m_remarkList->Item(std::int64_t{index}) : nullptr;
  return remark ? Item(remark->TypeID()) : nullptr;
}

void RemarkContext::Load(const std::string& i_sContextID, const std::string& i_sOwnerID, const std::string& i_sUserID) {
  RefuseWhileEdited("RemarkContext.Load");
  modDatabase::EnsureConnection();
  Save(false);
  const auto former = m_remarkList;
  m_loadState = LoadState::Failed;
  if (former) former->SetTakesNew(false);
  m_contextID = i_sContextID;
  const auto reading = modDatabase::BeginReading();
  const std::string userID = i_sUserID.empty() ? modUserName::GetUserName() : i_sUserID;
  contextLoader::ContextQueries queries(m_contextID, userID);
  queries.LoadContext(m_context);
  const auto types = std::make_shared<RemarkTypes>();
  m_types = types;
  queries.LoadTypes(shared_from_this(), *types);
  m_userID = userID;
  queries.LoadRights(*types);
  m_loadState = LoadState::Done;
  if (former) former->SetTakesNew(true);
  m_ownerID = i_sOwnerID;
  try {
    LoadMemos();
  } catch (...) {
    if (m_remarkList && m_remarkList->Origin().owner) m_loadState = LoadState::Failed;
    throw;
  }
}

void RemarkContext::LoadMemos() {
  m_owner = {};
  const bool hasOwner = !m_ownerID.empty();
  const bool isForNoOwner = !hasOwner && m_loadState == LoadState::Done;
  ReplaceList(isForNoOwner ? std::optional(MemoOwner{m_context.entityKey, 0}) : std::nullopt);
  if (!hasOwner && m_loadState != LoadState::Failed) return;
  RequireLoaded("RemarkContext.LoadMemos");
  const auto list = m_remarkList;
  // Until its remarks are read, the host still shows the former record and means that with what it adds.
  list->SetTakesNew(false);
  try {
    contextLoader::LoadOwner(m_context.ownerProcedure, m_ownerID, m_owner);
  } catch (...) {
    list->SetTakesNew(true);
    throw;
  }
  list->SetOrigin(OriginOf(MemoOwner{m_context.entityKey, m_owner.key}));
  RefreshRemarkList();
}

void RemarkContext::ReplaceList(std::optional<MemoOwner> owner) {
  m_remarkList = std::make_shared<quorvel::RemarkList>(OriginOf(owner));
  m_remarkList->SetTakesNew(m_loadState != LoadState::Failed);
}

ListOrigin RemarkContext::OriginOf(std::optional<MemoOwner> owner) const {
  return {owner, m_context.editBehavior, m_userID};
}

// The loaders fill the object step by step, so after a failed load entity, types and owner may not belong together.
void RemarkContext::RequireLoaded(const char* source) const {
  if (m_loadState == LoadState::Done) return;
  throw Error(ErrorNumber::Component, source, "Context has not been loaded");
}

void RemarkContext::RequireTakesNew(const char* source) const {
  RequireLoaded(source);
  if (!m_remarkList) ThrowObjectNotSet();
  static_cast<void>(m_remarkList->Owner(source));
  m_remarkList->RequireTakesNew(source);
}

ListOrigin RemarkContext::LoadedOrigin(const char* source) const {
  RequireTakesNew(source);
  return m_remarkList->Origin();
}

void RemarkContext::RefreshRemarkList() {
  if (m_ownerID.empty()) return;
  RefuseWhileAsking(kRefreshRemarkList);
  Save(false);
  RequireLoaded(kRefreshRemarkList);
  // Dispose has left no list, and no types whose remarks could be read.
  const MemoOwner owner =
      m_remarkList ? m_remarkList->Owner(kRefreshRemarkList) : MemoOwner{m_context.entityKey, m_owner.key};
  const bool takesNew = !m_remarkList || m_remarkList->TakesNew();
  const auto former = m_remarkList;
  ReplaceList(owner);
  const auto types = m_types;
  const auto list = m_remarkList;
  list->SetTakesNew(takesNew);
  if (former) list->Follow(*former);
  contextLoader::LoadRemarks(m_contextID, owner, types.get(), *list);
  list->SetTakesNew(m_loadState != LoadState::Failed);
}

void RemarkContext::Edit(const std::string& i_sContextID, const std::string& i_sOwnerID, const std::string& i_sUserID) {
  Load(i_sContextID, i_sOwnerID, i_sUserID);
  EditMemos(false);
}

void RemarkContext::Popup(const std::string& i_sContextID, const std::string& i_sOwnerID,
                          const std::string& i_sUserID) {
  Load(i_sContextID, i_sOwnerID, i_sUserID);
  PopupMemos(false);
}

void RemarkContext::Save(bool bForceSave) {
  // While the user is asked, the host may let go of this object or load something else.
  const auto keepAlive = weak_from_this().lock();
  const auto list = m_remarkList;
  if (!list || !list->Dirty()) return;
  if (!bForceSave) {
    const quorvel::EditBehavior behavior = list->Origin().editBehavior;
    if (behavior == EditBehavior::NoAutoSave) return;
    if (behavior == EditBehavior::PromptForSave && !AskWhetherToSave()) return;
  }
  const modWaitCursor::BusyPointer busy;
  list->Save();
}

bool RemarkContext::AskWhetherToSave() {
  const RaisedFlag asking(m_isAsking);
  return CurrentPrompts().ShowMessage("Save changes to these remarks?", "Edit Remarks", PromptButtons::YesNo,
                                      PromptIcon::Question) == PromptAnswer::Yes;
}

void RemarkContext::AddRemark(const Value& i_vRemarkTypeIndex, const std::string& i_sRemarkText,
                              const std::string& i_sUserID) {
  auto type = Item(i_vRemarkTypeIndex);
  if (!type) {
    throw Error(ErrorNumber::Component, "RemarkContext.AddRemark", "Illegal remark type for this context");
  }
  RequireTakesNew("RemarkContext.AddRemark");
  auto remark = std::make_shared<Remark>();
  remark->SetRemarkType(std::move(type));
  remark->SetMemoText(i_sRemarkText);
  // The logon name is not m_userID: the host may load a context for another user.
  remark->SetUserID(i_sUserID.empty() ? modUserName::GetUserName() : i_sUserID);
  remark->SetDateStamp(Now());
  remark->SetDirty(true);
  m_remarkList->AddRemark(std::move(remark));
}

void RemarkContext::PopupMemos(bool i_bRefresh) {
  if (i_bRefresh) RefreshRemarkList();
  // A service without a display may call this, so the window library is not started for an empty window.
  if (PopupCount() <= 0 && !HasRemarkWindows()) return;
  CurrentRemarkWindows("RemarkContext.PopupMemos").ViewPopup(*this);
}

void RemarkContext::EditMemos(bool i_bRefresh) {
  if (i_bRefresh) RefreshRemarkList();
  // The user would write to the owner of the former list, or to none, below the caption of another one.
  const bool isLoaded = m_loadState == LoadState::Done && m_remarkList;
  if (isLoaded || m_loadState == LoadState::Failed) RequireTakesNew("RemarkContext.EditMemos");
  RemarkWindows& windows = CurrentRemarkWindows("RemarkContext.EditMemos");
  // The host may let go of this object while the window is open.
  const auto keepAlive = weak_from_this().lock();
  const RaisedFlag edited(m_isEdited);
  windows.ViewEdit(*this);
}

void RemarkContext::ViewManager(std::int32_t i_lModal) {
  CurrentRemarkWindows("RemarkContext.ViewManager").ViewManager(i_lModal);
}

// When the write after Yes fails, the host must still have the remarks.
void RemarkContext::RefuseWhileAsking(const char* operation) const {
  if (!m_isAsking) return;
  throw Error(ErrorNumber::Component, operation,
              "The user is being asked whether to save the remarks; call again after the answer");
}

// A remark belongs to the owner that its context has when it is written.
void RemarkContext::RefuseWhileEdited(const char* operation) const {
  RefuseWhileAsking(operation);
  if (!m_isEdited) return;
  throw Error(ErrorNumber::Component, operation, "The remarks are open in the editor; close it first");
}

void RemarkContext::Dispose() {
  // The types may hold the last references to this object.
  const auto keepAlive = weak_from_this().lock();
  if (m_remarkList) m_remarkList->Clear(true);
  m_remarkList = nullptr;
  if (!m_types) return;
  for (const auto& type : m_types->All()) type->SetContext(nullptr);
  m_types = nullptr;
}

}  // namespace quorvel
