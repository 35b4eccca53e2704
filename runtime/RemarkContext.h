#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/Value.h"
#include "runtime/EditBehavior.h"
#include "runtime/Publishable.h"
#include "runtime/RemarkList.h"
#include "runtime/RemarkType.h"
#include "runtime/RemarkTypes.h"

namespace quorvel {

/// Binds a context (a place in the host), an owner (one of the host's records) and a user, and holds the owner's
/// remarks that the user may read. Load fills it; the rest works on what was loaded.
///
/// Create it, use it and let go of it on one thread; call Dispose before letting go, since its types refer back
/// to it. Errors of its own carry number -1 and a source of class, point and operation; database errors pass
/// through unchanged.
class RemarkContext : public std::enable_shared_from_this<RemarkContext>, public Publishable {
  struct Private {};

 public:
  /// A new, empty context: no types, no list, no database work.
  [[nodiscard]] static std::shared_ptr<RemarkContext> Create();
  explicit RemarkContext(Private) {}

  [[nodiscard]] quorvel::EditBehavior EditBehavior() const noexcept { return m_editBehavior; }
  void SetEditBehavior(quorvel::EditBehavior behavior) noexcept { m_editBehavior = behavior; }
  [[nodiscard]] bool GroupByType() const noexcept { return m_groupByType; }
  [[nodiscard]] bool AllowRowSizing() const noexcept { return m_allowRowSizing; }
  [[nodiscard]] std::int32_t RowHeight() const noexcept { return m_rowHeight; }
  [[nodiscard]] const std::string& UserID() const noexcept { return m_userID; }
  [[nodiscard]] const std::string& ContextID() const noexcept { return m_contextID; }
  [[nodiscard]] const std::string& OwnerID() const noexcept { return m_ownerID; }
  /// An ID that differs in more than letter case saves what is pending (Save(false)) and looks the owner up. When the
  /// look-up fails the ID stays and the list is empty.
  void SetOwnerID(const std::string& ownerID);
  [[nodiscard]] const std::string& Caption() const noexcept { return m_caption; }
  /// The host's number for the kind of owner record.
  [[nodiscard]] std::int32_t EntityKey() const noexcept { return m_entityKey; }
  [[nodiscard]] const std::string& EntityName() const noexcept { return m_entityName; }
  [[nodiscard]] std::int32_t OwnerKey() const noexcept { return m_ownerKey; }
  /// Stores the key and empties the list; nothing is saved and nothing is read. Error 91, after the key was
  /// stored, when there is no list.
  void SetOwnerKey(std::int32_t ownerKey);
  [[nodiscard]] const std::string& OwnerName() const noexcept { return m_ownerName; }
  /// The owner's remarks; null before an owner lookup and after Dispose.
  [[nodiscard]] const std::shared_ptr<quorvel::RemarkList>& RemarkList() const noexcept { return m_remarkList; }

  /// The type at a 1-based position or with that TypeID in any letter case; null when there is none.
  [[nodiscard]] std::shared_ptr<RemarkType> Item(const Value& i_vIndexKey) const noexcept;
  [[nodiscard]] std::int32_t TypeCount() const noexcept;
  [[nodiscard]] std::int32_t MemoCount() const noexcept;
  [[nodiscard]] std::int32_t PopupCount() const noexcept;
  /// Types whose CanCreate is greater than 0.
  [[nodiscard]] std::int32_t CreateableTypes() const noexcept;
  /// The types in load order, for walking over them; null after Dispose.
  [[nodiscard]] const std::shared_ptr<RemarkTypes>& Types() const noexcept { return m_types; }
  [[nodiscard]] std::string ConnectionString() const;
  [[nodiscard]] std::string Server() const;

  /// Whether that right (any value but 0) stands on the type of the remark at 1-based `i_lIndex`; false when
  /// there is no such remark or its type is not of this context.
  [[nodiscard]] bool CanUpdate(std::int32_t i_lIndex) const;
  [[nodiscard]] bool CanDelete(std::int32_t i_lIndex) const;
  [[nodiscard]] bool CanCreate(std::int32_t i_lIndex) const;

  /// Saves what is pending (Save(false)), then reads context, types, rights, owner and remarks. An empty owner gives
  /// an empty list, an empty user means the logon name. An error ends it there and keeps what was loaded.
  void Load(const std::string& i_sContextID, const std::string& i_sOwnerID = {}, const std::string& i_sUserID = {});
  /// Load, then EditMemos.
  void Edit(const std::string& i_sContextID, const std::string& i_sOwnerID = {}, const std::string& i_sUserID = {});
  /// Load, then PopupMemos.
  void Popup(const std::string& i_sContextID, const std::string& i_sOwnerID = {}, const std::string& i_sUserID = {});

  /// Reads the owner's remarks again, after Save(false). Does nothing without an owner.
  void RefreshRemarkList();
  /// Writes what is unsaved; without force EditBehavior decides, and may ask. Where there is nobody to ask, the error
  /// of Prompts, and everything stays unsaved; so too from whatever calls Save(false).
  void Save(bool bForceSave = false);
  /// Appends a new remark in memory. The type's CanCreate is not asked: the host decides. An empty user means the
  /// logon name. Error -1 when the context has no such type.
  void AddRemark(const Value& i_vRemarkTypeIndex, const std::string& i_sRemarkText, const std::string& i_sUserID = {});

  /// Open the windows, with `i_bRefresh` on remarks that were read again. Error -1 when there are no windows. While the
  /// editor is open, a timer of the host for example can neither load another owner nor set one: error -1.
  void PopupMemos(bool i_bRefresh = false);
  void EditMemos(bool i_bRefresh = false);
  void ViewManager(std::int32_t i_lModal = 0);

  /// Forgets remarks and types, saving nothing. A new Load makes the object usable again. std::bad_alloc, with nothing
  /// forgotten, when there is no memory left for that.
  void Dispose();

 private:
  void LoadContext();
  void LoadRemarkTypes();
  void LoadUserRights();
  void LoadMemos();
  [[nodiscard]] std::shared_ptr<RemarkType> TypeOfRemark(std::int32_t index) const;
  void RefuseWhileEdited(const char* operation) const;

  std::string m_userID;
  std::string m_contextID;
  std::string m_ownerID;
  std::int32_t m_rowHeight = 0;
  bool m_groupByType = false;
  bool m_allowRowSizing = false;
  std::string m_caption;
  std::int32_t m_entityKey = 0;
  std::string m_entityName;
  std::int32_t m_ownerKey = 0;
  std::string m_ownerName;
  std::string m_ownerProcedure;
  std::shared_ptr<RemarkTypes> m_types = std::make_shared<RemarkTypes>();
  std::shared_ptr<quorvel::RemarkList> m_remarkList;
  quorvel::EditBehavior m_editBehavior = quorvel::EditBehavior::AutoSaveOnClose;
  bool m_isEdited = false;  ///< the editor is open on it
};

}  // namespace quorvel
