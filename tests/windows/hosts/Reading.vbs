' Reads everything from a loaded context, its types, its list and its remarks.

Dim context, list, remark, remarkType

Set context = CreateObject("Quorvel.RemarkContext")
Absent "a new context has no list", context.RemarkList
Equal "a new context has no types", context.TypeCount, 0
Equal "a new context counts no remarks", context.MemoCount, 0

context.Load "CustMaint", "C1044", "admin"

Equal "ContextID", context.ContextID, "CustMaint"
Equal "UserID", context.UserID, "admin"
Equal "OwnerID", context.OwnerID, "C1044"
Equal "OwnerKey", context.OwnerKey, 45
Equal "OwnerName", context.OwnerName, "Acme Tools"
Equal "Caption", context.Caption, "Customer Maintenance"
Equal "EntityKey", context.EntityKey, 501
Equal "EntityName", context.EntityName, "Customer"
Equal "GroupByType", context.GroupByType, True
Equal "AllowRowSizing", context.AllowRowSizing, True
Equal "RowHeight", context.RowHeight, 2
Equal "EditBehavior", context.EditBehavior, 2
Equal "TypeCount", context.TypeCount, 4
Equal "MemoCount", context.MemoCount, 7
Equal "PopupCount", context.PopupCount, 3
Equal "CreateableTypes", context.CreateableTypes, 4
Equal "Server", context.Server, "(embedded)"
Equal "ConnectionString begins with provider and server", _
  Left(context.ConnectionString, 50), "Provider=SQLOLEDB.1;Data Source=(embedded); Initia"
Equal "names in any letter case", context.mEMOcOUNT, 7
Equal "counts are 32-bit numbers", VarType(context.MemoCount), 3

' The default member.
Dim key
Equal "a type by its text", context("Cust.General").Caption, "General"
Equal "a type by its text in capitals", context("CUST.GENERAL").TypeID, "Cust.General"
Equal "a type by its position", context(1).TypeID, "Cust.AR.Coll"
Equal "a type through Item", context.Item(4).TypeID, "Cust.Internal"
key = "Cust.Credit"
Equal "a type by a variable with its text", context(key).TypeID, "Cust.Credit"
key = 2
Equal "a type by a variable with its position", context(key).TypeID, "Cust.Credit"
Same "a type is one object", context("Cust.General"), context(3)
Same "a type knows its context", context(1).Context, context
Absent "no type of that text", context("Ord.Ship")
Absent "no type at 0", context(0)
Absent "no type after the last", context(5)
Absent "a number in a text is a key and no position", context("1")
Absent "no type by Null", context(Null)

Set remarkType = context("Cust.Credit")
Equal "a type pops up", remarkType.ShowPopup, True
Equal "a type's right to create", remarkType.CanCreate, 1
Equal "a type's right to delete", remarkType.CanDelete, 1

Set list = context.RemarkList
Same "a list is one object", context.RemarkList, list
Equal "Count", list.Count, 7
Equal "the list's PopupCount", list.PopupCount, 3
Equal "the list is not dirty", list.Dirty, False
Same "a remark through the property with an argument", context.RemarkList(1), list.Item(1)
Same "a remark through the default member", list(7), list.Item(7)
Absent "no remark at 0", list(0)
Absent "no remark after the last", list(8)
Absent "a text finds no remark", list("1")
Equal "no position for nothing", list.Index(Nothing), 0

Set remark = list(1)
Equal "MemoText", Left(remark.MemoText, 21), "Dana promised payment"
Equal "a remark's UserID", remark.UserID, "jsmith"
Equal "a remark's TypeID", remark.TypeID, "Cust.AR.Coll"
Equal "TypeCaption", remark.TypeCaption, "Collections"
Equal "a remark's OwnerKey", remark.OwnerKey, 45
Equal "a remark's EntityKey", remark.EntityKey, 501
Equal "a remark's ShowPopup", remark.ShowPopup, True
Equal "a remark is not dirty", remark.Dirty, False
Equal "a stored remark has a key", remark.MemoKey > 0, True
EqualDate "DateStamp", remark.DateStamp, #2024-03-11 13:30:00#
Same "a remark's type", remark.RemarkType, context("Cust.AR.Coll")

' Nested loops.
Dim ids, position
ids = ""
For Each remarkType In context
  ids = ids & remarkType.TypeID & ":"
  For Each remark In list
    If remark.RemarkType Is remarkType Then ids = ids & list.Index(remark)
  Next
  ids = ids & " "
Next
Equal "types and their remarks", ids, "Cust.AR.Coll:12 Cust.Credit:3 Cust.General:467 Cust.Internal:5 "
position = 0
For Each remark In context.RemarkList
  position = position + 1
  If Not remark Is list(position) Then Equal "the loop gives remark " & position, "another", "the same"
Next
Equal "the loop over the list", position, 7

' Omitted arguments, at the end and between others.
Equal "may delete", context.CanDelete(1), True
context.Load "CustMaint", "C1044", "mjones"
Equal "a salesman sees less", context.MemoCount, 4
Equal "may change his type", context.CanUpdate(1), True
Equal "may create his type", context.CanCreate(1), True
Equal "may not delete it", context.CanDelete(1), False
Equal "no right after the last", context.CanUpdate(5), False
Equal "fewer types to create", context.CreateableTypes, 2
context.Load "CustInq", , "admin"
Equal "without an owner", context.OwnerKey & "/" & context.OwnerName & "/" & context.MemoCount, "0//0"
Equal "with the user after it", context.UserID, "admin"
context.Load "CustInq"
Equal "without a user the logon name counts", Len(context.UserID) > 0, True

context.Dispose
Equal "nothing left after Dispose", context.TypeCount + context.MemoCount + context.PopupCount, 0
Absent "no type after Dispose", context(1)
context.Load "OrderEntry", "SO20001", "admin"
Equal "usable again after Dispose", context.OwnerName, "Acme Tools"
context.Dispose

Finish 75
