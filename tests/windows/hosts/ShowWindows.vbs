' Opens the windows; windows-host.sh presses the keys.

Dim context
Set context = CreateObject("Quorvel.RemarkContext")

context.Popup "CustMaint", "C1044", "jsmith"
WScript.Echo "popped up " & context.PopupCount

context.Edit "CustMaint", "C1044", "jsmith"
WScript.Echo "edited " & context.MemoCount & ", unsaved " & context.RemarkList.Dirty

context.ViewManager 1
WScript.Echo "managed"
