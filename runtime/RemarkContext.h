#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/Value.h"
#include "runtime/ContextRecord.h"
#include "runtime/EditBehavior.h"
#include "runtime/MemoOwner.h"
#include "runtime/Publishable.h"
#include "runtime/RemarkList.h"
#include "runtime/RemarkType.h"
#include "runtime/RemarkTypes.h"

namespace quorvel {

/// Binds a context (a place in the host), an owner (one of the host's records) and a user, and holds the owner's
/// remarks that the user may read. Load fills it; the other members work on what was loaded.
///
/// Create, use and release it on one thread. Call Dispose before releasing it, since its types refer back to it. Its
/// own errors have the number -1 and a source such as "RemarkContext.Load"; database errors pass through unchanged.
class RemarkContext : public std::enable_shared_from_this<RemarkContext>, public Publishable {
  struct Private {};

 public:
  /// A new, empty context: no types, no list, no database work.
  [[nodiscard]] static std::shared_ptr<RemarkContext> Create();
  explicit RemarkContext(Private) {}

  [[nodiscard]] quorvel::EditBehavior EditBehavior() const noexcept { return m_context.editBehavior; }
  void SetEditBehavior(quorvel::EditBehavior behavior) noexcept;
  [[nodiscard]] bool GroupByType() const noexcept { return m_context.groupByType; }
  [[nodiscard]] bool AllowRowSizing() const noexcept { return m_context.allowRowSizing; }
  [[nodiscard]] std::int32_t RowHeight() const noexcept { return m_context.rowHeight; }
  [[nodiscard]] const std::string& UserID() const noexcept { return m_userID; }
  [[nodiscard]] const std::string& ContextID() const noexcept { return m_contextID; }
  [[nodiscard]] const std::string& OwnerID() const noexcept { return m_ownerID; }
  /// An ID that differs in more than letter case saves what is pending (Save(false)), then looks the owner up and reads
  /// the remarks. After a failed look-up the new ID stays and the list is empty. Meanwhile, and after a failed read
  /// until RefreshRemarkList succeeds, AddRemark, the list's Add and EditMemos raise error -1.
  void SetOwnerID(const std::string& ownerID);
  [[nodiscard]] const std::string& Caption() const noexcept { return m_context.caption; }
  /// The host's number for the kind of owner record.
  [[nodiscard]] std::int32_t EntityKey() const noexcept { return m_context.entityKey; }
  [[nodiscard]] const std::string& EntityName() const noexcept { return m_context.entityName; }
  [[nodiscard]] std::int32_t OwnerKey() const noexcept { return m_owner.key; }
  /// Stores the key and empties the list without saving or reading; remarks that are added from now on belong to this
  /// owner, and after a failed Load none are added. Error -1 while the editor is open or the user is asked whether to
  /// save. Error 91, after storing the key, when there is no list.
  void SetOwnerKey(std::int32_t ownerKey);
  [[nodiscard]] const std::string& OwnerName() const noexcept { return m_owner.name; }
  /// The owner's remarks; null before an owner lookup and after Dispose.
  [[nodiscard]] const std::shared_ptr<quorvel::RemarkList>& RemarkList() const noexcept { return m_remarkList; }

  /// The type at a 1-based position or with that TypeID in any letter case; null when there is none.
  [[nodiscard]] std::shared_ptr<RemarkType> Item(const Value& i_vIndexKey) const noexcept;
  [[nodiscard]] std::int32_t TypeCount() const noexcept;
  [[nodiscard]] std::int32_t MemoCount() const noexcept;
  [[nodiscard]] std::int32_t PopupCount() const noexcept;
  /// Types whose CanCreate is greater than 0.
  [[nodiscard]] std::int32_t CreateableTypes() const noexcept;
  /// The origin of the list, for remarks without a list; error -1 from `source` when the last Load failed or did not
  /// find the owner, 91 after Dispose.
  [[nodiscard]] ListOrigin LoadedOrigin(const char* source) const;
  /// The types in load order, for walking over them; null after Dispose.
  [[nodiscard]] const std::shared_ptr<RemarkTypes>& Types() const noexcept { return m_types; }
  [[nodiscard]] std::string ConnectionString() const;
  [[nodiscard]] std::string Server() const;

  /// Whether the type of the remark at 1-based `i_lIndex` has that right (any value except 0); false when there is no
  /// such remark or its type is not of this context.
  [[nodiscard]] bool CanUpdate(std::int32_t i_lIndex) const;
  [[nodiscard]] bool CanDelete(std::int32_t i_lIndex) const;
  [[nodiscard]] bool CanCreate(std::int32_t i_lIndex) const;

  /// Saves what is pending (Save(false)), then reads context, types, rights, owner and remarks in this order. An empty
  /// owner gives an empty list, an empty user means the logon name. An error ends the load and keeps what was read.
  /// Until another Load succeeds, AddRemark, the list's Add, RefreshRemarkList, EditMemos and a new OwnerID raise error
  /// -1. The remarks that were there before can still be saved unless the load has come to the owner.
  void Load(const std::string& i_sContextID, const std::string& i_sOwnerID = {}, const std::string& i_sUserID = {});
  /// Load, then EditMemos.
  void Edit(const std::string& i_sContextID, const std::string& i_sOwnerID = {}, const std::string& i_sUserID = {});
  /// Load, then PopupMemos.
  void Popup(const std::string& i_sContextID, const std::string& i_sOwnerID = {}, const std::string& i_sUserID = {});

  /// Reads the owner's remarks again, after Save(false). Does nothing without an owner. Error -1 when the last Load
  /// failed, and while the user is asked whether to save.
  void RefreshRemarkList();
  /// Writes what is unsaved, for the owner for which the list was read. Without force the EditBehavior of the list
  /// decides, and may ask the user; where no prompt can be shown, Save and every caller of Save(false) raise the error
  /// of Prompts, and everything stays unsaved. While the user is asked, the remarks of the question stay those of the
  /// context, unless the host forgets them by Dispose, Clear or Restore.
  void Save(bool bForceSave = false);
  /// Appends a new remark in memory, whatever CanCreate says: the host decides. An empty user means the logon name.
  /// Error -1 when the context has no such type, or when the last Load failed or the owner is not known.
  void AddRemark(const Value& i_vRemarkTypeIndex, const std::string& i_sRemarkText, const std::string& i_sUserID = {});

  /// Open the windows; `i_bRefresh` reads the remarks again first. Error -1 when no window can be opened. While the
  /// editor is open, or a question whether to save, Load and the setters of the owner raise error -1, for example in a
  /// timer of the host. The editor is refused with error -1 when the owner of the remarks is not known.
  void PopupMemos(bool i_bRefresh = false);
  void EditMemos(bool i_bRefresh = false);
  void ViewManager(std::int32_t i_lModal = 0);

  /// Forgets remarks and types without saving. A new Load makes the object usable again. After std::bad_alloc nothing
  /// is forgotten.
  void Dispose();

 private:
  enum class LoadState { None, Failed, Done };

  void LoadMemos();
  [[nodiscard]] ListOrigin OriginOf(std::optional<MemoOwner> owner) const;
  /// Makes a new, empty list.
  void ReplaceList(std::optional<MemoOwner> owner);
  void RequireLoaded(const char* source) const;
  /// The errors of LoadedOrigin.
  void RequireTakesNew(const char* source) const;
  /// Shows the question and returns whether the user wants to save.
  [[nodiscard]] bool AskWhetherToSave();
  [[nodiscard]] std::shared_ptr<RemarkType> TypeOfRemark(std::int32_t index) const;
  void RefuseWhileEdited(const char* operation) const;
  void RefuseWhileAsking(const char* operation) const;

  std::string m_userID;
  std::string m_contextID;
  std::string m_ownerID;
  ContextRecord m_context;
  OwnerRecord m_owner;
  std::shared_ptr<RemarkTypes> m_types = std::make_shared<RemarkTypes>();
  std::shared_ptr<quorvel::RemarkList> m_remarkList;
  LoadState m_loadState = LoadState::None;  ///< Done: context, types and rights are those of one load
  bool m_isEdited = false;                  ///< the editor is open on this context
  bool m_isAsking = false;                  ///< the user is asked whether to save remarks of this context
};

}  // namespace quorvel
