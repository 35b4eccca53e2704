' Asks for a window where none can be opened; no-display-host.sh runs it without a display.

Dim context
Set context = CreateObject("Quorvel.RemarkContext")
context.Load "CustMaint", "C1044", "jsmith"
context.AddRemark "Cust.General", "Moves in May.", "jsmith"

On Error Resume Next
context.EditMemos False
WScript.Echo Err.Number & " " & Err.Description
Err.Clear
context.PopupMemos False
WScript.Echo Err.Number & " " & Err.Description
Err.Clear
context.Save True
WScript.Echo Err.Number & ", unsaved " & context.RemarkList.Dirty
