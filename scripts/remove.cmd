@echo off
rem Takes the control's registration away again; run it as it was registered.
setlocal
%SystemRoot%\System32\regsvr32.exe /s /u "%~dp0DistPromoterProg.ocx"
set result=%errorlevel%
if %result%==0 (
  echo The registration is gone; the files may be deleted.
) else (
  echo The registration could not be taken away: regsvr32 ended with %result%.
)
rem Started by a double-click, the window would close before anybody has read it.
echo %cmdcmdline% | %SystemRoot%\System32\find.exe /i "%~nx0" >nul && pause
exit /b %result%
