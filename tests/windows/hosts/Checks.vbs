Option Explicit

' What the scripts check with. It stands in front of each script in one file: script hosts cannot include another file
' without a wrapper around both.
'
' Every check is told on a line of its own, so that the output of a script that broke off ends where it did.

Dim checkCount, failureCount
checkCount = 0
failureCount = 0

Sub Tell(what, isRight, actual, expected)
  checkCount = checkCount + 1
  If isRight Then
    WScript.Echo "ok      " & what
  Else
    failureCount = failureCount + 1
    WScript.Echo "FAILED  " & what & ": expected <" & expected & ">, got <" & actual & ">"
  End If
End Sub

' The kind of a value: numbers of any width are one kind, since literals are short and the component's are long.
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
  Tell what, isRight, Shown(actual), Shown(expected)
End Sub

Sub Same(what, actual, expected)
  Tell what, actual Is expected, "another object", "the same object"
End Sub

Sub Absent(what, actual)
  Tell what, actual Is Nothing, "an object", "Nothing"
End Sub

' A date as the script host computes it may differ in the last digit.
Sub EqualDate(what, actual, expected)
  Tell what, VarType(actual) = 7 And Abs(CDbl(actual) - CDbl(expected)) < 0.0000001, Shown(actual), Shown(expected)
End Sub

' How the call before it ended. For scripts that go on after errors.
Sub Failed(what, number, source, description)
  Dim actual, expected
  actual = Err.Number & "|" & Err.Source & "|" & Err.Description
  expected = number & "|" & source & "|" & description
  Err.Clear
  Tell what, actual = expected, actual, expected
End Sub

' For errors that the script host has its own source and text for.
Sub FailedWith(what, number)
  Dim actual
  actual = Err.Number
  Err.Clear
  Tell what, actual = number, actual, number
End Sub

Sub Succeeded(what)
  Failed what, 0, "", ""
End Sub

' The last line of every script, with the number of its checks: one that goes on after errors would not notice those that
' it never came to.
Sub Finish(expectedCount)
  Equal "number of checks", checkCount, expectedCount
  WScript.Echo checkCount & " checks, " & failureCount & " failed"
  If failureCount > 0 Then WScript.Quit 1
  WScript.Quit 0
End Sub
