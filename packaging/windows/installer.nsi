; The installer of the Windows control. scripts/package-windows defines VERSION, NUMBERS (the version
; as four numbers), COMPANY, COPYRIGHT, ICON, OUT and LISTS: the folder of three lists of one file a
; line, which it makes of what is installed.
Name "DistPromoterProg"
OutFile "${OUT}"
BrandingText "DistPromoterProg ${VERSION}"
SetCompressor /SOLID lzma
ManifestDPIAware true
ManifestSupportedOS all

!define MULTIUSER_MUI
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_INSTDIR "DistPromoterProg"
!define MULTIUSER_USE_PROGRAMFILES64
!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\DistPromoterProg"
; An update goes where the older version lies.
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${ENTRY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_FUNCTION TakeGivenFolder
!include MultiUser.nsh
!include MUI2.nsh
!include x64.nsh

; What Windows calls these errors: a rollout sees why nothing was done.
!define SHARING_VIOLATION 32
!define ELEVATION_REQUIRED 740
!define INSTALL_FAILURE 1603
!define /ifndef WS_EX_LAYOUTRTL 0x400000

Var givenFolder ; by /D=
Var updating    ; the uninstaller makes room for another version

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_LANGDLL_ALLLANGUAGES
!define MULTIUSER_PAGE_CUSTOMFUNCTION_SHOW TurnModePage
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
; NSIS has no Persian words for this page.
!define MULTIUSER_TEXT_INSTALLMODE_TITLE "انتخاب كاربران"
!define MULTIUSER_TEXT_INSTALLMODE_SUBTITLE "$(^NameDA) براي كدام كاربران نصب شود؟"
!define MULTIUSER_INNERTEXT_INSTALLMODE_TOP "مشخص كنيد كه $(^NameDA) تنها براي خود شما نصب شود يا براي همه كاربران اين كامپيوتر. $(^ClickNext)"
!define MULTIUSER_INNERTEXT_INSTALLMODE_ALLUSERS "نصب براي همه كاربران اين كامپيوتر"
!define MULTIUSER_INNERTEXT_INSTALLMODE_CURRENTUSER "نصب تنها براي من"
!insertmacro MUI_LANGUAGE "Farsi"

LangString InUse ${LANG_ENGLISH} "A program is using the control. Close the programs that show it, and try again."
LangString InUse ${LANG_FARSI} "برنامه‌اي در حال استفاده از اين كنترل است. برنامه‌هايي را كه آن را نشان مي‌دهند ببنديد و دوباره تلاش كنيد."
LangString NotRegistered ${LANG_ENGLISH} "The control could not be registered; nothing was installed."
LangString NotRegistered ${LANG_FARSI} "ثبت كنترل در ويندوز ممكن نشد؛ چيزي نصب نشد."
LangString OldStays ${LANG_ENGLISH} "The version that is installed could not be removed."
LangString OldStays ${LANG_FARSI} "نسخه نصب شده قبلي حذف نشد."
LangString NotWritten ${LANG_ENGLISH} "A file could not be written; nothing was installed."
LangString NotWritten ${LANG_FARSI} "نوشتن يك فايل ممكن نشد؛ چيزي نصب نشد."
LangString NoRights ${LANG_ENGLISH} "Only an administrator can do that for all users."
LangString NoRights ${LANG_FARSI} "اين كار براي همه كاربران تنها از مدير سيستم ساخته است."

VIProductVersion "${NUMBERS}"
VIFileVersion "${NUMBERS}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "CompanyName" "${COMPANY}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "FileDescription" "Installer of DistPromoterProg"
VIAddVersionKey /LANG=${LANG_ENGLISH} "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "LegalCopyright" "${COPYRIGHT}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "ProductName" "DistPromoterProg"
VIAddVersionKey /LANG=${LANG_ENGLISH} "ProductVersion" "${VERSION}"

; What the installer and the uninstaller share: UN is empty or "un.".
!macro SHARED UN

; Before MultiUser looks at the switches: its own message would wait for somebody in a silent run.
Function ${UN}EndWithoutRights
  ${${UN}GetParameters} $0
  ClearErrors
  ${${UN}GetOptions} $0 "/AllUsers" $1
  ${IfNot} ${Errors}
    UserInfo::GetAccountType
    Pop $1
    ${If} $1 != "Admin"
      MessageBox MB_OK|MB_ICONSTOP "$(NoRights)" /SD IDOK
      SetErrorLevel ${ELEVATION_REQUIRED}
      Quit
    ${EndIf}
  ${EndIf}
FunctionEnd

; Whether the file $2 is there and loaded by a host: it cannot be opened for writing then; 1 or 0 in $1.
Function ${UN}IsInUse
  ${If} ${FileExists} $2
    ClearErrors
    FileOpen $3 $2 a
    ${If} ${Errors}
      StrCpy $1 1
      Return
    ${EndIf}
    FileClose $3
  ${EndIf}
  StrCpy $1 0
FunctionEnd

; Ends with nothing changed where a host has a library of the folder $0 loaded.
Function ${UN}EndIfInUse
  again:
  StrCpy $2 "$0\win32\DistPromoterProg.ocx"
  Call ${UN}IsInUse
  ${If} $1 = 0
    StrCpy $2 "$0\win64\DistPromoterProg.ocx"
    Call ${UN}IsInUse
  ${EndIf}
  ${If} $1 = 1
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(InUse)" /SD IDCANCEL IDRETRY again
    SetErrorLevel ${SHARING_VIOLATION}
    Abort "$(InUse)"
  ${EndIf}
FunctionEnd

; Calls the regsvr32 of either width for the libraries of $INSTDIR; $0 is the switches before the
; file, and afterwards 0 where both succeeded.
Function ${UN}CallRegsvr32
  StrCpy $1 $0
  ${If} $MultiUser.InstallMode == "CurrentUser"
    StrCpy $1 "$1 /n /i:user"
  ${EndIf}
  StrCpy $2 0
  ${If} ${FileExists} "$INSTDIR\win32\DistPromoterProg.ocx"
    ExecWait '"$SYSDIR\regsvr32.exe" $1 "$INSTDIR\win32\DistPromoterProg.ocx"' $2
  ${EndIf}
  StrCpy $0 $2
  ${If} ${FileExists} "$INSTDIR\win64\DistPromoterProg.ocx"
    StrCpy $2 1
    ; How a 32-bit program, which this is, comes at what is 64-bit.
    ExecWait '"$WINDIR\Sysnative\regsvr32.exe" $1 "$INSTDIR\win64\DistPromoterProg.ocx"' $2
    IntOp $0 $0 | $2
  ${EndIf}
FunctionEnd

; What was installed, and no file that somebody else put beside it.
Function ${UN}RemoveAll
  StrCpy $0 "/s /u"
  Call ${UN}CallRegsvr32
  !include "${LISTS}/delete.nsh"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  DeleteRegKey SHCTX "${ENTRY}"
FunctionEnd

!macroend
!insertmacro SHARED ""
!insertmacro SHARED "un."

; The entry in the list of apps.
!macro ENTRY NAME VALUE
  WriteRegStr SHCTX "${ENTRY}" "${NAME}" '${VALUE}'
!macroend

; The page of MultiUser stands left to right in every language.
Function TurnModePage
  ${If} $(^RTL) = 1
    ${NSD_AddExStyle} $MultiUser.InstallModePage.Text ${WS_EX_LAYOUTRTL}
    ${NSD_AddExStyle} $MultiUser.InstallModePage.AllUsers ${WS_EX_LAYOUTRTL}
    ${NSD_AddExStyle} $MultiUser.InstallModePage.CurrentUser ${WS_EX_LAYOUTRTL}
  ${EndIf}
FunctionEnd

Function TakeGivenFolder
  ${If} $givenFolder != ""
    StrCpy $INSTDIR $givenFolder
  ${EndIf}
FunctionEnd

Function .onInit
  StrCpy $givenFolder $INSTDIR
  ${If} ${RunningX64}
    SetRegView 64
  ${EndIf}
  Call EndWithoutRights
  !insertmacro MULTIUSER_INIT
  !insertmacro MUI_LANGDLL_DISPLAY
FunctionEnd

Function un.onInit
  ${If} ${RunningX64}
    SetRegView 64
  ${EndIf}
  Call un.EndWithoutRights
  !insertmacro MULTIUSER_UNINIT
  ${un.GetParameters} $0
  ClearErrors
  ${un.GetOptions} $0 "/Update" $1
  ${IfNot} ${Errors}
    StrCpy $updating 1
  ${EndIf}
FunctionEnd

Section
  ReadRegStr $4 SHCTX "${ENTRY}" "InstallLocation"
  ${If} $4 != ""
  ${AndIf} ${FileExists} "$4\uninstall.exe"
    StrCpy $0 $4
    Call EndIfInUse
    ; Told where it lies, it runs there and is waited for.
    ExecWait '"$4\uninstall.exe" /S /$MultiUser.InstallMode /Update _?=$4' $0
    ${If} $0 != 0
      MessageBox MB_OK|MB_ICONSTOP "$(OldStays)" /SD IDOK
      SetErrorLevel ${INSTALL_FAILURE}
      Abort "$(OldStays)"
    ${EndIf}
    Delete "$4\uninstall.exe"
    RMDir "$4"
  ${EndIf}

  ClearErrors
  !include "${LISTS}/both.nsh"
  ${If} ${IsNativeAMD64}
    !include "${LISTS}/win64.nsh"
  ${EndIf}
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ${If} ${Errors}
    Call RemoveAll
    MessageBox MB_OK|MB_ICONSTOP "$(NotWritten)" /SD IDOK
    SetErrorLevel ${INSTALL_FAILURE}
    Abort "$(NotWritten)"
  ${EndIf}

  StrCpy $0 "/s"
  Call CallRegsvr32
  ${If} $0 != 0
    Call RemoveAll
    MessageBox MB_OK|MB_ICONSTOP "$(NotRegistered)" /SD IDOK
    SetErrorLevel ${INSTALL_FAILURE}
    Abort "$(NotRegistered)"
  ${EndIf}

  !insertmacro ENTRY "DisplayName" "DistPromoterProg"
  !insertmacro ENTRY "DisplayVersion" "${VERSION}"
  !insertmacro ENTRY "Publisher" "${COMPANY}"
  !insertmacro ENTRY "DisplayIcon" "$INSTDIR\uninstall.exe"
  !insertmacro ENTRY "InstallLocation" "$INSTDIR"
  !insertmacro ENTRY "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
  !insertmacro ENTRY "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S /$MultiUser.InstallMode'
  WriteRegDWORD SHCTX "${ENTRY}" "NoModify" 1
  WriteRegDWORD SHCTX "${ENTRY}" "NoRepair" 1
  SectionGetSize 0 $0
  WriteRegDWORD SHCTX "${ENTRY}" "EstimatedSize" $0
SectionEnd

Section Uninstall
  StrCpy $0 $INSTDIR
  Call un.EndIfInUse
  Call un.RemoveAll
  ${If} $updating != 1
    ; What the control itself keeps: the places of windows.
    DeleteRegKey HKCU "Software\DistPromoterProg\Windows"
    DeleteRegKey /ifempty HKCU "Software\DistPromoterProg"
  ${EndIf}
SectionEnd
