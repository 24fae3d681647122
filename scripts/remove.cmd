@echo off
rem Takes the control's registration away again; run it as it was registered.
%SystemRoot%\System32\regsvr32.exe /s /u "%~dp0DistPromoterProg.ocx"
if errorlevel 1 (
  echo The registration could not be taken away.
  exit /b 1
)
echo The registration is gone; the files may be deleted.
