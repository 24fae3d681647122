@echo off
rem Registers the control: for the machine when run as administrator, else for this user.
setlocal
%SystemRoot%\System32\regsvr32.exe /s "%~dp0DistPromoterProg.ocx"
set result=%errorlevel%
if %result%==0 (
  echo The control is registered.
) else (
  echo The control could not be registered: regsvr32 ended with %result%.
)
rem Started by a double-click, the window would close before anybody has read it.
echo %cmdcmdline% | %SystemRoot%\System32\find.exe /i "%~nx0" >nul && pause
exit /b %result%
