' Adds, changes, deletes and saves remarks. Each result is checked through a new context.

Dim context, list, remark, count, text

Function Reloaded(owner)
  Set Reloaded = CreateObject("Quorvel.RemarkContext")
  Reloaded.Load "CustMaint", owner, "admin"
End Function

' The remark of the owner with that text; Nothing without one.
Function Stored(owner, text)
  Dim other, each_
  Set Stored = Nothing
  Set other = Reloaded(owner)
  For Each each_ In other.RemarkList
    If each_.MemoText = text Then Set Stored = each_
  Next
End Function

Set context = Reloaded("C1044")
Set list = context.RemarkList

' Adding a remark from code.
context.AddRemark "cust.general", "Gate code 4711", "jsmith"
Set remark = list(list.Count)
Equal "added after the others", list.Count, 8
Equal "a new remark has no key", remark.MemoKey, 0
Equal "a new remark is dirty", remark.Dirty, True
Equal "the list is dirty with it", list.Dirty, True
Equal "its type", remark.TypeID, "Cust.General"
Equal "its date is now", Abs(Now - remark.DateStamp) < 0.01, True
Absent "not written before Save", Stored("C1044", "Gate code 4711")
context.Save True
Equal "written, it has a key", remark.MemoKey > 0, True
Equal "written, it is not dirty", remark.Dirty, False
Equal "written with its user", Stored("C1044", "Gate code 4711").UserID, "jsmith"
Equal "written with its key", Stored("C1044", "Gate code 4711").MemoKey, remark.MemoKey

' By position, and without a user.
context.AddRemark 2, "By position"
Equal "type by position", list(9).TypeID, "Cust.Credit"
Equal "the logon name without a user", Len(list(9).UserID) > 0, True
list.Save
Equal "the list saves too", Stored("C1044", "By position").TypeID, "Cust.Credit"

' Save writes a change only when Dirty is set.
remark.MemoText = "Gate code 4712"
Equal "a change alone is not dirty", list.Dirty, False
remark.Dirty = True
context.Save True
Equal "changed in the database", Stored("C1044", "Gate code 4712").MemoKey, remark.MemoKey
remark.MemoText = "  Gate code 4713  "
remark.Commit
Equal "Commit writes at once, without the blanks around", _
  Stored("C1044", "Gate code 4713").MemoKey, remark.MemoKey
Equal "and keeps them in the remark", Len(remark.MemoText), 18
remark.Delete
Absent "Delete deletes at once", Stored("C1044", "Gate code 4713")

' Remarks that the host creates.
Dim own
Set own = CreateObject("Quorvel.Remark")
Absent "a remark made by the host has no type", own.RemarkType
Equal "nor what comes from the type", own.TypeID & own.OwnerKey & own.TypeCaption & own.ShowPopup, "0False"
Set own.RemarkType = context("Cust.Internal")
own.MemoText = "Made by the host"
own.Dirty = True
Equal "not in the list yet", list.Index(own), 0
list.AddRemark own
Equal "position of that very remark", list.Index(own), list.Count
Same "the list holds the host's object", list(list.Count), own
list.Save
Equal "written with the context's user", Stored("C1044", "Made by the host").UserID, "admin"
Set remark = list.Add
Same "Add gives the new last one", remark, list(list.Count)
Set remark.RemarkType = own.RemarkType
Equal "Set of a type", remark.TypeCaption & remark.OwnerKey, "Internal45"
Set remark.RemarkType = Nothing
Equal "Set of no type", remark.TypeCaption, ""

' Removing and restoring.
count = Reloaded("C1044").MemoCount
Set context = Reloaded("C1044")
Set list = context.RemarkList
Set remark = list(1)
text = remark.MemoText
list.Backup
remark.MemoText = "Scribbled over"
list.Remove 2
Equal "removed from the list", list.Count, count - 1
Equal "a removal makes dirty", list.Dirty, True
list.Restore
Equal "restored in number", list.Count, count
Equal "restored in text", list(1).MemoText, text
Equal "restored remarks have no user", list(1).UserID, ""
Equal "the remark from before is not in the list", list.Index(remark), 0
list.Remove 2
context.Save True
Equal "the removed one is deleted", Reloaded("C1044").MemoCount, count - 1
Equal "saved, nothing is dirty", list.Dirty, False

' Unsaved changes.
context.EditBehavior = 1
Equal "EditBehavior as assigned", context.EditBehavior, 1
context.AddRemark "Cust.General", "Discarded"
context.Save
Absent "NoAutoSave does not save", Stored("C1044", "Discarded")
context.OwnerID = "c1044"
Equal "the same owner in other letters changes nothing", context.OwnerID & context.MemoCount, "C1044" & count
context.OwnerID = "C1000"
Equal "another owner", context.OwnerName & "/" & context.MemoCount, "Alder Creek Hardware/1"
Absent "its unsaved remark is lost", Stored("C1044", "Discarded")
context.EditBehavior = 0
context.AddRemark "Cust.General", "Kept"
context.OwnerID = "C1044"
Equal "AutoSaveOnClose saves when the owner changes", Stored("C1000", "Kept").UserID <> "", True

context.RefreshRemarkList
Equal "read again", context.MemoCount, count - 1
context.OwnerKey = 46
Equal "another key empties the list", context.OwnerKey & "/" & context.MemoCount, "46/0"
context.RefreshRemarkList
Equal "and is read by it", context.MemoCount, 0
Set list = Reloaded("C1044").RemarkList
list.Clear
Equal "Clear", list.Count, 0
list.Clear False
Equal "Clear without new collections", list.Count, 0
Equal "writes nothing", Reloaded("C1044").MemoCount, count - 1

Finish 48
