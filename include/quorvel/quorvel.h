#pragma once

/// The interfaces of Quorvel as a C++ host compiles against them, on Windows and elsewhere; quorvel.idl says the same
/// for every other language. Nothing here changes from one build to the next: not an identifier, not the order.
///
/// Rules of the boundary:
///  1. Every member returns an HRESULT; what it delivers comes through its last argument, which is null, 0 or false
///     after a failure. A null pointer where a result or a value by reference belongs is E_POINTER.
///  2. No exception leaves the component. A failed call leaves an error object with source and description, which
///     GetErrorInfo takes; a call by name brings the same in its EXCEPINFO.
///  3. Errors of the component itself are -1. A number n of the language runtime (1 to 65535: 9 subscript out of range,
///     13 type mismatch, 91 object not set, 110 settings not writable) is 0x800A0000 + n. Numbers of the database are
///     what they are.
///  4. Texts are BSTRs of UTF-16; null and empty mean the same; zeros inside are kept, half a surrogate pair becomes
///     U+FFFD. A text that a member delivers is the caller's to free, one that is passed stays the caller's.
///     Arguments by reference are not changed.
///  5. An object that a member delivers comes with a reference, which the caller releases; null where the component
///     has none. The same remark, type, list or context is always the same pointer while the host holds it.
///  6. Objects that are passed must come from this component; others are refused with an error that says so.
///  7. An object belongs to the thread that made it. Each thread has its own database connection.
///  8. A context and its types refer to each other: call Dispose before releasing the context, or it stays in memory.

#include <quorvel/com.h>

namespace Quorvel {

/// How Save treats unsaved changes. Any other value acts as AutoSaveOnClose.
enum EditBehavior : LONG { AutoSaveOnClose = 0, NoAutoSave = 1, PromptForSave = 2 };

struct _RemarkType;
struct _Remark;
struct _RemarkContext;
struct _RemarkList;

#ifdef __GNUC__
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

/// One kind of remark with the rights of the context's user on it; a right of 0 is not granted.
struct _RemarkType : IDispatch {
  virtual HRESULT QUORVEL_CALL get_Context(_RemarkContext** context) = 0;
  virtual HRESULT QUORVEL_CALL putref_Context(_RemarkContext* context) = 0;
  virtual HRESULT QUORVEL_CALL get_TypeID(BSTR* typeID) = 0;
  virtual HRESULT QUORVEL_CALL put_TypeID(BSTR typeID) = 0;
  virtual HRESULT QUORVEL_CALL get_Caption(BSTR* caption) = 0;
  virtual HRESULT QUORVEL_CALL put_Caption(BSTR caption) = 0;
  virtual HRESULT QUORVEL_CALL get_ShowPopup(VARIANT_BOOL* showPopup) = 0;
  virtual HRESULT QUORVEL_CALL put_ShowPopup(VARIANT_BOOL showPopup) = 0;
  virtual HRESULT QUORVEL_CALL get_CanCreate(LONG* right) = 0;
  virtual HRESULT QUORVEL_CALL put_CanCreate(LONG right) = 0;
  virtual HRESULT QUORVEL_CALL get_CanRead(LONG* right) = 0;
  virtual HRESULT QUORVEL_CALL put_CanRead(LONG right) = 0;
  virtual HRESULT QUORVEL_CALL get_CanUpdate(LONG* right) = 0;
  virtual HRESULT QUORVEL_CALL put_CanUpdate(LONG right) = 0;
  virtual HRESULT QUORVEL_CALL get_CanDelete(LONG* right) = 0;
  virtual HRESULT QUORVEL_CALL put_CanDelete(LONG right) = 0;
};

/// One remark. A host that edits it sets Dirty; the list saves the dirty ones.
struct _Remark : IDispatch {
  virtual HRESULT QUORVEL_CALL get_RemarkType(_RemarkType** type) = 0;
  virtual HRESULT QUORVEL_CALL putref_RemarkType(_RemarkType* type) = 0;
  /// 0 for a remark that was never stored.
  virtual HRESULT QUORVEL_CALL get_MemoKey(LONG* key) = 0;
  virtual HRESULT QUORVEL_CALL put_MemoKey(LONG key) = 0;
  /// The next five are the type's, empty without one.
  virtual HRESULT QUORVEL_CALL get_OwnerKey(LONG* key) = 0;
  virtual HRESULT QUORVEL_CALL get_EntityKey(LONG* key) = 0;
  virtual HRESULT QUORVEL_CALL get_TypeID(BSTR* typeID) = 0;
  virtual HRESULT QUORVEL_CALL get_TypeCaption(BSTR* caption) = 0;
  virtual HRESULT QUORVEL_CALL get_ShowPopup(VARIANT_BOOL* showPopup) = 0;
  /// Local time, kept to the millisecond.
  virtual HRESULT QUORVEL_CALL get_DateStamp(DATE* dateStamp) = 0;
  virtual HRESULT QUORVEL_CALL put_DateStamp(DATE dateStamp) = 0;
  virtual HRESULT QUORVEL_CALL get_UserID(BSTR* userID) = 0;
  virtual HRESULT QUORVEL_CALL put_UserID(BSTR userID) = 0;
  virtual HRESULT QUORVEL_CALL get_MemoText(BSTR* text) = 0;
  virtual HRESULT QUORVEL_CALL put_MemoText(BSTR text) = 0;
  virtual HRESULT QUORVEL_CALL get_Dirty(VARIANT_BOOL* dirty) = 0;
  virtual HRESULT QUORVEL_CALL put_Dirty(VARIANT_BOOL dirty) = 0;
  /// Writes the remark to the database at once.
  virtual HRESULT QUORVEL_CALL Commit() = 0;
  /// Deletes its row in the database at once.
  virtual HRESULT QUORVEL_CALL Delete() = 0;
};

/// Binds a context (a place in the host), an owner (one of the host's records) and a user, and holds the owner's
/// remarks that the user may read.
struct _RemarkContext : IDispatch {
  virtual HRESULT QUORVEL_CALL get_EditBehavior(EditBehavior* behavior) = 0;
  virtual HRESULT QUORVEL_CALL put_EditBehavior(EditBehavior* behavior) = 0;
  virtual HRESULT QUORVEL_CALL get_GroupByType(VARIANT_BOOL* groupByType) = 0;
  virtual HRESULT QUORVEL_CALL get_AllowRowSizing(VARIANT_BOOL* allow) = 0;
  virtual HRESULT QUORVEL_CALL get_RowHeight(LONG* height) = 0;
  virtual HRESULT QUORVEL_CALL get_UserID(BSTR* userID) = 0;
  virtual HRESULT QUORVEL_CALL get_ContextID(BSTR* contextID) = 0;
  virtual HRESULT QUORVEL_CALL get_OwnerID(BSTR* ownerID) = 0;
  /// Another ID saves what is pending, looks the owner up and reads the remarks.
  virtual HRESULT QUORVEL_CALL put_OwnerID(BSTR* ownerID) = 0;
  virtual HRESULT QUORVEL_CALL get_Caption(BSTR* caption) = 0;
  virtual HRESULT QUORVEL_CALL get_EntityKey(LONG* key) = 0;
  virtual HRESULT QUORVEL_CALL get_EntityName(BSTR* name) = 0;
  virtual HRESULT QUORVEL_CALL get_OwnerKey(LONG* key) = 0;
  /// Empties the list; nothing is saved and nothing is read.
  virtual HRESULT QUORVEL_CALL put_OwnerKey(LONG key) = 0;
  virtual HRESULT QUORVEL_CALL get_OwnerName(BSTR* name) = 0;
  virtual HRESULT QUORVEL_CALL get_RemarkList(_RemarkList** list) = 0;
  /// The type at a 1-based position or with that TypeID in any letter case; null when there is none.
  virtual HRESULT QUORVEL_CALL get_Item(VARIANT* i_vIndexKey, _RemarkType** type) = 0;
  virtual HRESULT QUORVEL_CALL get_TypeCount(LONG* count) = 0;
  virtual HRESULT QUORVEL_CALL get_MemoCount(LONG* count) = 0;
  virtual HRESULT QUORVEL_CALL get_PopupCount(LONG* count) = 0;
  /// An IEnumVARIANT over the types.
  virtual HRESULT QUORVEL_CALL get_NewEnum(IUnknown** enumerator) = 0;
  virtual HRESULT QUORVEL_CALL get_CreateableTypes(LONG* count) = 0;
  virtual HRESULT QUORVEL_CALL get_ConnectionString(BSTR* connectionString) = 0;
  /// Whether the user may change, delete or create remarks of the type that the remark at 1-based `i_lIndex` has.
  virtual HRESULT QUORVEL_CALL CanUpdate(LONG i_lIndex, VARIANT_BOOL* granted) = 0;
  virtual HRESULT QUORVEL_CALL CanDelete(LONG i_lIndex, VARIANT_BOOL* granted) = 0;
  virtual HRESULT QUORVEL_CALL CanCreate(LONG i_lIndex, VARIANT_BOOL* granted) = 0;
  /// Load, then EditMemos.
  virtual HRESULT QUORVEL_CALL Edit(BSTR i_sContextID, BSTR i_sOwnerID, BSTR i_sUserID) = 0;
  /// Load, then PopupMemos.
  virtual HRESULT QUORVEL_CALL Popup(BSTR i_sContextID, BSTR i_sOwnerID, BSTR i_sUserID) = 0;
  /// Reads context, types, rights, owner and remarks. Without an owner the list is empty; without a user the logon
  /// name counts.
  virtual HRESULT QUORVEL_CALL Load(BSTR i_sContextID, BSTR i_sOwnerID, BSTR i_sUserID) = 0;
  /// Writes what is unsaved; without force EditBehavior decides.
  virtual HRESULT QUORVEL_CALL Save(VARIANT_BOOL bForceSave) = 0;
  virtual HRESULT QUORVEL_CALL RefreshRemarkList() = 0;
  /// Forgets remarks and types, saving nothing.
  virtual HRESULT QUORVEL_CALL Dispose() = 0;
  /// Appends a new remark to the list; Save writes it.
  virtual HRESULT QUORVEL_CALL AddRemark(VARIANT* i_vRemarkTypeIndex, BSTR* i_sRemarkText, BSTR i_sUserID) = 0;
  virtual HRESULT QUORVEL_CALL PopupMemos(VARIANT_BOOL i_bRefresh) = 0;
  virtual HRESULT QUORVEL_CALL EditMemos(VARIANT_BOOL i_bRefresh) = 0;
  /// Opens the administration; modal with 1.
  virtual HRESULT QUORVEL_CALL ViewManager(LONG i_lModal) = 0;
  virtual HRESULT QUORVEL_CALL get_Server(BSTR* server) = 0;
};

/// The remarks of one owner.
struct _RemarkList : IDispatch {
  /// An IEnumVARIANT over the remarks.
  virtual HRESULT QUORVEL_CALL get_NewEnum(IUnknown** enumerator) = 0;
  /// The remark at a 1-based position; null when there is none. A text finds nothing.
  virtual HRESULT QUORVEL_CALL get_Item(VARIANT* i_vIndexKey, _Remark** remark) = 0;
  virtual HRESULT QUORVEL_CALL get_Count(LONG* count) = 0;
  virtual HRESULT QUORVEL_CALL get_PopupCount(LONG* count) = 0;
  virtual HRESULT QUORVEL_CALL get_Dirty(VARIANT_BOOL* dirty) = 0;
  /// The 1-based position of that very remark; 0 when it is not in the list.
  virtual HRESULT QUORVEL_CALL Index(_Remark** i_oRemark, LONG* position) = 0;
  virtual HRESULT QUORVEL_CALL Backup() = 0;
  virtual HRESULT QUORVEL_CALL Restore() = 0;
  /// Appends a new empty remark and delivers it.
  virtual HRESULT QUORVEL_CALL Add(_Remark** remark) = 0;
  virtual HRESULT QUORVEL_CALL AddRemark(_Remark** i_oRemark) = 0;
  virtual HRESULT QUORVEL_CALL Save() = 0;
  /// Takes a remark out; the next Save deletes it in the database.
  virtual HRESULT QUORVEL_CALL Remove(VARIANT* i_vIndexKey) = 0;
  virtual HRESULT QUORVEL_CALL Clear(VARIANT_BOOL i_bRecreateCollection) = 0;
};

#ifdef __GNUC__
#pragma GCC diagnostic pop
#endif

inline constexpr GUID LIBID_Quorvel{0x42F21CB3, 0x2EBB, 0x418D, {0x80, 0xAB, 0xEE, 0x92, 0x84, 0xE1, 0xE9, 0xE0}};
inline constexpr GUID IID__RemarkType{0x4BF3EBDA, 0xB8DB, 0x4139, {0xBA, 0x9E, 0xD2, 0x22, 0xB0, 0xF9, 0xBF, 0x38}};
inline constexpr GUID IID__Remark{0x45C92F4D, 0x006D, 0x4800, {0x83, 0xCF, 0x4A, 0x99, 0xC3, 0xCA, 0xCB, 0x26}};
inline constexpr GUID IID__RemarkContext{0xE79433FC, 0x7F61, 0x493D, {0x85, 0x46, 0x2D, 0x2C, 0x4A, 0xA9, 0xF0, 0xBA}};
inline constexpr GUID IID__RemarkList{0x8B330B1D, 0x9736, 0x4D88, {0x91, 0x32, 0xB3, 0x7C, 0xCC, 0x6A, 0xCA, 0xC4}};
inline constexpr GUID CLSID_RemarkType{0x8D569D19, 0xCCBB, 0x48AC, {0x8C, 0x5C, 0x4D, 0xE9, 0x63, 0xB1, 0x93, 0x50}};
inline constexpr GUID CLSID_Remark{0x878C05C7, 0x73A1, 0x4CD6, {0x83, 0x92, 0x74, 0xC0, 0xFD, 0xB3, 0x05, 0x1C}};
inline constexpr GUID CLSID_RemarkContext{0x8698FEEE, 0x5589, 0x45FA, {0x8B, 0x93, 0x90, 0x95, 0x6F, 0x55, 0xC6, 0xA3}};
inline constexpr GUID CLSID_RemarkList{0xFC14C990, 0x34E1, 0x42C8, {0x82, 0x8E, 0x95, 0xE2, 0x76, 0x2A, 0x01, 0x68}};

}  // namespace Quorvel

/// Creates an object by its programmatic identifier, "Quorvel.RemarkContext" or "Quorvel.Remark" in any letter case.
/// CO_E_CLASSSTRING for another name, E_NOINTERFACE for an interface that the object does not have. Elsewhere than on
/// Windows com.h declares it.
#ifdef _WIN32
#include <objbase.h>
/// COM must have been initialised on this thread, and the component registered.
inline HRESULT QuorvelCreate(LPCOLESTR progId, REFIID riid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  CLSID classId;
  const HRESULT found = CLSIDFromProgID(progId, &classId);
  return FAILED(found) ? found : CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, riid, object);
}
#endif
