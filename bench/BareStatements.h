#pragma once

/// The queries of Load as statements of SQLite. ?1 is the context, the user or the owner's identifier; ?2 and ?3 are
/// the keys of entity and owner.
namespace quorvel::bench::bare {

inline constexpr const char* kContext =
    "SELECT c.Caption, e.AcuityEntityKey, e.Caption, e.spGetOwnerName, c.GroupByType, c.AllowRowSizing, c.RowHeight, "
    "c.EditBehavior FROM ttwContext c INNER JOIN ttwRemarkEntity e ON e.RemarkEntityKey = c.RemarkEntityKey "
    "WHERE c.ContextID = rtrim(?1)";

inline constexpr const char* kTypes =
    "SELECT t.RemarkTypeID, t.Caption, rc.Priority FROM ttwContext c "
    "INNER JOIN ttwRemarkContext rc ON rc.ContextKey = c.ContextKey "
    "INNER JOIN ttwRemarkType t ON t.RemarkTypeKey = rc.RemarkTypeKey "
    "WHERE c.ContextID = rtrim(?1) ORDER BY rc.DisplaySeq, t.RemarkTypeKey";

inline constexpr const char* kRights =
    "SELECT t.RemarkTypeID, max(r.CanCreate), max(r.CanRead), max(r.CanUpdate), max(r.CanDelete) FROM ttwUser u "
    "INNER JOIN ttwGroupMember gm ON gm.UserKey = u.UserKey INNER JOIN ttwRemarkRight r ON r.GroupKey = gm.GroupKey "
    "INNER JOIN ttwRemarkType t ON t.RemarkTypeKey = r.RemarkTypeKey WHERE u.UserID = rtrim(?1) GROUP BY "
    "t.RemarkTypeID";

inline constexpr const char* kOwner = "SELECT CustKey, CustName FROM Customer WHERE CustID = rtrim(?1)";

inline constexpr const char* kMemos =
    "SELECT t.RemarkTypeID, m.MemoKey, m.DateStamp, m.UserID, m.MemoText FROM ttwContext c "
    "INNER JOIN ttwRemarkContext rc ON rc.ContextKey = c.ContextKey "
    "INNER JOIN ttwRemarkType t ON t.RemarkTypeKey = rc.RemarkTypeKey INNER JOIN tciMemo m ON m.MemoType = "
    "t.RemarkTypeID "
    "WHERE c.ContextID = rtrim(?1) AND m.EntityType = ?2 AND m.OwnerKey = ?3 "
    "ORDER BY CASE WHEN rc.Priority = 0 THEN 1 ELSE 0 END, m.DateStamp DESC, m.MemoKey DESC";

}  // namespace quorvel::bench::bare
