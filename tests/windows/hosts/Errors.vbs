' Every error that a host can meet, as its Err object shows it. For errors of the call itself the script host has its own
' texts, so only their number is checked.

Const kNotSet = "Object variable or With block variable not set"

Dim context, list, remark, shell, value, engine, userParameter

On Error Resume Next
Set shell = CreateObject("WScript.Shell")
Set context = CreateObject("Quorvel.RemarkContext")
Succeeded "a context is created"

' Classes that hosts cannot create.
Set value = CreateObject("Quorvel.RemarkList")
FailedWith "hosts cannot create a list", 429
Set value = CreateObject("Quorvel.RemarkType")
FailedWith "hosts cannot create a type", 429

' The component's own.
context.OwnerID = "C1044"
Failed "an owner before a context", -1, "RemarkContext.LoadMemos", "Context has not been loaded"
context.Load "Nowhere", "C1044", "admin"
Failed "an unknown context", -1, "RemarkContext.LoadContext", "ContextID [Nowhere] not found"
Equal "which is kept nevertheless", context.ContextID, "Nowhere"
context.Load "CustMaint", "C9999", "admin"
Failed "an unknown owner", -1, "RemarkContext.LoadMemos", "OwnerID [C9999] not found"
Equal "with the context loaded", context.TypeCount, 4
context.Load ""
Failed "no context", -1, "RemarkContext.LoadContext", "ContextID [] not found"
context.Load "CustMaint", "C1044", "admin"
Succeeded "a load after failures"
context.AddRemark "Ord.Ship", "text"
Failed "a type of another context", -1, "RemarkContext.AddRemark", "Illegal remark type for this context"
context.AddRemark Nothing, "text"
Failed "no type", -1, "RemarkContext.AddRemark", "Illegal remark type for this context"
Equal "nothing was added", context.MemoCount, 7

' Missing and foreign objects.
Set list = context.RemarkList
Set remark = CreateObject("Quorvel.Remark")
list.Remove 8
Failed "removing after the last", 9, "Quorvel", "Subscript out of range"
list.Remove 0
Failed "removing at 0", 9, "Quorvel", "Subscript out of range"
list.Remove "1"
Failed "removing by text", 5, "Quorvel", "Invalid procedure call or argument"
list.AddRemark Nothing
Failed "adding nothing", 91, "Quorvel", kNotSet
list.AddRemark shell
FailedWith "adding a foreign object", 13
list.AddRemark context
FailedWith "adding an object of another class", 13
value = list.Index(shell)
FailedWith "looking for a foreign object", 13
value = list.Index("text")
FailedWith "looking for a text", 13
Set remark.RemarkType = shell
FailedWith "a foreign type", 13
remark.RemarkType = "Cust.General"
FailedWith "a text for a type", 13
remark.Commit
Failed "committing without a type", 91, "Quorvel", kNotSet
Equal "nothing was added to the list", list.Count, 7

' Values of a wrong type.
remark.MemoText = Null
FailedWith "Null for a text", 13
remark.MemoText = shell
FailedWith "an object for a text", 13
remark.DateStamp = "no date"
FailedWith "a text for a date", 13
remark.MemoKey = "no number"
FailedWith "a text for a number", 13
remark.MemoKey = 99999999999
FailedWith "a number that is too large", 6
context.EditBehavior = "no number"
FailedWith "a text for the edit behavior", 13
context.Load Null
FailedWith "Null for a context", 13

' Calls that do not match the interface.
context.Caption = "x"
FailedWith "writing a read-only property", 438
context.Nonsense
FailedWith "an unknown member", 438
context.Load
FailedWith "an argument that is not optional", 449
context.Load "CustMaint", "C1044", "admin", 4
FailedWith "an argument too many", 450

' Errors of the database have its numbers. Only a missing owner procedure is an error of the context.
context.Load "Broken", "C1044", "admin"
Failed "an owner procedure that is missing", -1, "RemarkContext.LoadMemos", "Context has not been loaded"
context.Load "CustMaint", "C1044", "admin"
Succeeded "loading before the next failures"
context.RemarkList(1).Delete
engine = "Quorvel.ODBC"
userParameter = "@userid" ' as the stand-in for a SQL Server names it
If context.Server = "(embedded)" Then
  engine = "Quorvel.Embedded"
  userParameter = "@UserID"
End If
Failed "a procedure that is missing", -2147217900, engine, _
  "Could not find stored procedure 'spTWCqvDeleteRemark'."
context.AddRemark "Cust.General", "Not to be stored", String(31, "u")
context.Save True
Failed "a user that is too long for the procedure", 3421, "Quorvel.ADO", _
  "Application uses a value of the wrong type for the current operation. " & _
  "The text for parameter " & userParameter & " has 31 characters; 30 is the limit."
Equal "the remark that was not saved stays dirty", context.RemarkList.Dirty, True

context.Dispose
context.OwnerKey = 5
Failed "an owner's key without a list", 91, "Quorvel", kNotSet

On Error GoTo 0
Finish 42
