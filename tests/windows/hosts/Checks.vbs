Option Explicit

' The checks of the scripts. script-host.sh puts this file in front of each script, because script hosts cannot include
' another file without a wrapper around both.
'
' Each check prints one line, so the output shows where a script stopped.

Dim checkCount, failureCount
checkCount = 0
failureCount = 0

Sub Report(what, isRight, actual, expected)
  checkCount = checkCount + 1
  If isRight Then
    WScript.Echo "ok      " & what
  Else
    failureCount = failureCount + 1
    WScript.Echo "FAILED  " & what & ": expected <" & expected & ">, got <" & actual & ">"
  End If
End Sub

' The kind of a value. Numbers of any width are one kind, because literals are 16-bit and the component's are 32-bit.
Function KindOf(value)
  Select Case VarType(value)
    Case 2, 3, 4, 5
      KindOf = "number"
    Case 8
      KindOf = "text"
    Case 11
      KindOf = "flag"
    Case Else
      KindOf = "type " & VarType(value)
  End Select
End Function

Function Shown(value)
  If IsObject(value) Then
    Shown = "an object"
  Else
    Shown = KindOf(value) & " " & value
  End If
End Function

Sub Equal(what, actual, expected)
  Dim isRight
  isRight = False
  If KindOf(actual) = KindOf(expected) Then isRight = (actual = expected)
  Report what, isRight, Shown(actual), Shown(expected)
End Sub

Sub Same(what, actual, expected)
  Report what, actual Is expected, "another object", "the same object"
End Sub

Sub Absent(what, actual)
  Report what, actual Is Nothing, "an object", "Nothing"
End Sub

' A date that the script host computes may differ in the last digit.
Sub EqualDate(what, actual, expected)
  Report what, VarType(actual) = 7 And Abs(CDbl(actual) - CDbl(expected)) < 0.0000001, Shown(actual), Shown(expected)
End Sub

' Checks the error of the previous call, for scripts that continue after errors.
Sub Failed(what, number, source, description)
  Dim actual, expected
  actual = Err.Number & "|" & Err.Source & "|" & Err.Description
  expected = number & "|" & source & "|" & description
  Err.Clear
  Report what, actual = expected, actual, expected
End Sub

' For errors whose source and text come from the script host.
Sub FailedWith(what, number)
  Dim actual
  actual = Err.Number
  Err.Clear
  Report what, actual = number, actual, number
End Sub

Sub Succeeded(what)
  Failed what, 0, "", ""
End Sub

' The last line of every script, with the number of its checks. A script that continues after errors would not notice
' that some checks never ran.
Sub Finish(expectedCount)
  Equal "number of checks", checkCount, expectedCount
  WScript.Echo checkCount & " checks, " & failureCount & " failed"
  If failureCount > 0 Then WScript.Quit 1
  WScript.Quit 0
End Sub
