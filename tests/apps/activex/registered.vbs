' registered.vbs PATH VERSION: the control that a script gets is the file PATH, of this VERSION.
Option Explicit
Dim id, file, version
With CreateObject("WScript.Shell")
  id = .RegRead("HKCR\comDistPromoterProg.DistPromoterProg\CLSID\")
  file = .RegRead("HKCR\CLSID\" & id & "\InprocServer32\")
End With
version = CreateObject("Scripting.FileSystemObject").GetFileVersion(file)
WScript.Echo file & " " & version
If LCase(file) <> LCase(WScript.Arguments(0)) Then WScript.Quit 1
If InStr(version & ".", WScript.Arguments(1) & ".") <> 1 Then WScript.Quit 1
WScript.Quit 7
