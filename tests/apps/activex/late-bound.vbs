' What a script host sees of the registered control. Arguments: the connection string of an office.
' Ends with exit code 7 when all of it was as expected; the last line says which step was not.
Option Explicit
Dim control, program, result, step

Sub Expect(what, holds)
  step = step + 1
  If Not holds Then
    WScript.Echo "step " & step & " failed: " & what
    WScript.Quit 1
  End If
End Sub

Set control = CreateObject("comDistPromoterProg.DistPromoterProg")
Expect "no login in a new control", control.UserID = -1 And control.EmployeeID = -1 And _
    control.PositionID = -1 And control.OLEConnectionString = ""
control.UserID = "1"
control.EmployeeID = 1.0
control.PositionID = 4
Expect "the login as given", control.UserID = 1 And control.EmployeeID = 1 And _
    control.PositionID = 4

On Error Resume Next
control.NoSuchMember
Expect "error 438 for a member that is none", Err.Number = 438
Err.Clear
control.UserID = "nobody"
Expect "error 13 for a text that is no number", Err.Number = 13 And control.UserID = 1
Err.Clear
control.OLEConnectionString = "sqlite:Z:\no\such\office.db"
result = control.ClearShow
Expect "a database error with words", Err.Number <> 0 And Len(Err.Description) > 20
Expect "the control's name as the source", InStr(Err.Source, "DistPromoterProg") > 0
Err.Clear
On Error GoTo 0

control.OLEConnectionString = WScript.Arguments(0)
program = CLng(1)
result = control.View(program)
Expect "False from View, the program's number as it was", result = False And program = 1
result = control.View(2)
Expect "False for a constant too", result = False
result = control.ClearShow()
Expect "False from ClearShow", result = False
Set control = Nothing
WScript.Echo "all " & step & " steps"
WScript.Quit 7
