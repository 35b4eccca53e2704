' Prints the server that the component reads from the settings, and the result of a load.

Dim context
Set context = CreateObject("Quorvel.RemarkContext")
On Error Resume Next
WScript.Echo "server <" & context.Server & ">"
Err.Clear
context.Load "CustMaint", "C1044", "admin"
WScript.Echo "load " & Err.Number & " " & Err.Source
WScript.Echo Err.Description
WScript.Echo "remarks " & context.MemoCount
