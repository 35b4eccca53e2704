' Tells what the component makes of the settings, and how a load with them ends.

Dim context
Set context = CreateObject("Quorvel.RemarkContext")
WScript.Echo "server <" & context.Server & ">"
On Error Resume Next
context.Load "CustMaint", "C1044", "admin"
WScript.Echo "load " & Err.Number & " " & Err.Source
WScript.Echo Err.Description
WScript.Echo "remarks " & context.MemoCount
