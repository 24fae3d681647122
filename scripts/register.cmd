@echo off
rem Registers the control: for the machine when run as administrator, else for this user.
%SystemRoot%\System32\regsvr32.exe /s "%~dp0DistPromoterProg.ocx"
if errorlevel 1 (
  echo The control could not be registered.
  exit /b 1
)
echo The control is registered.
