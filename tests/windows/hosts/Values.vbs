' Texts, dates, and other values in their place. The text with all kinds of characters is an argument, because script
' hosts read their files in the system's code page. It must be in the database at the end.

Dim context, list, remark, every, umlauts, zeros

every = WScript.Arguments(0)
umlauts = Chr(196) & Chr(246) & Chr(252) & Chr(223) & Chr(248)
zeros = "a" & Chr(0) & "b" & Chr(0)

Set context = CreateObject("Quorvel.RemarkContext")
context.Load "CustMaint", "C1043", "admin"
Set list = context.RemarkList
Equal "an owner's letters", context.OwnerName, "S" & Chr(248) & "ndergaard M" & Chr(248) & "bler"

Set remark = CreateObject("Quorvel.Remark")
remark.MemoText = every
Equal "every character", remark.MemoText, every
remark.MemoText = zeros
Equal "zeros inside", remark.MemoText, zeros
remark.MemoText = String(100000, "x")
Equal "a long text", Len(remark.MemoText), 100000
remark.MemoText = ""
Equal "an empty text", remark.MemoText, ""
remark.MemoText = 4711
Equal "a number as text", remark.MemoText, "4711"
remark.MemoText = Empty
Equal "nothing assigned yet", remark.MemoText, ""
remark.MemoKey = "12"
Equal "a text as number", remark.MemoKey, 12
remark.MemoKey = 2.5
Equal "half a number goes to the even one", remark.MemoKey, 2
remark.MemoKey = CCur(12.5)
Equal "a currency goes to the even number", remark.MemoKey, 12
remark.MemoText = CCur(-12.5)
Equal "a currency as text", CDbl(remark.MemoText), -12.5
remark.Dirty = 1
Equal "a number as flag", remark.Dirty, True
remark.Dirty = "False"
Equal "a text as flag", remark.Dirty, False

remark.DateStamp = #2003-02-01 04:05:06#
EqualDate "a date", remark.DateStamp, #2003-02-01 04:05:06#
remark.DateStamp = CDate("2024-02-29 23:59:59")
EqualDate "the last second of a leap day", remark.DateStamp, #2024-02-29 23:59:59#
remark.DateStamp = "2024-03-05"
EqualDate "a text as date", remark.DateStamp, #2024-03-05#
remark.DateStamp = 1.5
EqualDate "a number as date", remark.DateStamp, #1899-12-31 12:00:00#
remark.DateStamp = -1.25
Equal "the hours before the first day count forwards", CDbl(remark.DateStamp), -1.25

context.AddRemark "Cust.General", every, "admin"
context.AddRemark "Cust.General", umlauts, umlauts
context.AddRemark "Cust.General", zeros & "end", "admin"
context.AddRemark "Cust.General", Empty, "admin"
context.Save True
context.Load "CustMaint", "C1043", "admin"

Dim found, each_
found = ""
For Each each_ In context.RemarkList
  If each_.MemoText = every Then found = found & "every "
  If each_.MemoText = umlauts And each_.UserID = umlauts Then found = found & "umlauts "
  If each_.MemoText = zeros & "end" Then found = found & "zeros "
  If each_.MemoText = "" Then found = found & "empty "
Next
Equal "stored and read again: every", InStr(found, "every ") > 0, True
Equal "stored and read again: umlauts", InStr(found, "umlauts ") > 0, True
Equal "stored and read again: zeros", InStr(found, "zeros ") > 0, True
Equal "stored and read again: empty", InStr(found, "empty ") > 0, True

Finish 22
