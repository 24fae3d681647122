' Opens the promoter program editor from a script:
'   cscript late-bound.vbs "connection string" [program]
' The connection string is an OLE DB one, or sqlite: and a file.
Option Explicit

Dim control, program
If WScript.Arguments.Count < 1 Then
  WScript.Echo "cscript late-bound.vbs ""connection string"" [program]"
  WScript.Quit 2
End If
program = 0
If WScript.Arguments.Count > 1 Then program = CLng(WScript.Arguments(1))

Set control = CreateObject("comDistPromoterProg.DistPromoterProg")
control.UserID = 1
control.EmployeeID = 1
control.PositionID = 1
control.OLEConnectionString = WScript.Arguments(0)

On Error Resume Next
If program > 0 Then
  control.View program
Else
  control.ClearShow
End If
If Err.Number <> 0 Then
  WScript.Echo "Error " & (Err.Number And 65535) & ": " & Err.Description
  WScript.Quit 1
End If
On Error GoTo 0

' Both calls return at once: the editor lives in this process and goes with it. A program with a
' window pumps messages anyway; a script has to wait.
MsgBox "The editor is open. OK closes it.", vbInformation, "DistPromoterProg"
WScript.Echo "done"
WScript.Quit 0
