; The installer. makensis -DVERSION=... -DTREE=folder -DTARGET=file.exe -DICON=file.ico
;
; /S is silent; /AllUsers installs for the machine, without it for the user; /D=folder is the last word, unquoted.
; It writes into its folder, the start menu and the list of installed programs, and nowhere else: the library needs no
; registering. A Fiscal.ini that is there already stays, and one that was changed outlives uninstalling.
Unicode true
SetCompressor /SOLID lzma
!define NAME "Kestra"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Kestra"

; For the user nothing asks for an administrator; whoever wants it for the machine starts it as one.
RequestExecutionLevel user
!include MUI2.nsh
!include nsDialogs.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include TextFunc.nsh

Name "${NAME} ${VERSION}"
OutFile "${TARGET}"
BrandingText "${NAME} ${VERSION}"
!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\manual\index.html"
!define MUI_FINISHPAGE_SHOWREADME_TEXT "Abrir el manual"
!define MUI_FINISHPAGE_SHOWREADME_NOTCHECKED

!insertmacro MUI_PAGE_WELCOME
Page custom AskForWhom TakeForWhom
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Spanish"

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=${LANG_SPANISH} "ProductName" "${NAME}"
VIAddVersionKey /LANG=${LANG_SPANISH} "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_SPANISH} "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_SPANISH} "FileDescription" "Instalador de Kestra: impresoras fiscales Epson"
VIAddVersionKey /LANG=${LANG_SPANISH} "LegalCopyright" ""

Var Rights
Var GivenFolder
Var ForMachine

Function InstallForUser
  SetShellVarContext current
  StrCpy $INSTDIR $GivenFolder
  ${If} $INSTDIR == ""
    ReadRegStr $INSTDIR HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${EndIf}
  ${If} $INSTDIR == ""
    StrCpy $INSTDIR "$LOCALAPPDATA\Programs\${NAME}"
  ${EndIf}
FunctionEnd

Function InstallForMachine
  SetShellVarContext all
  StrCpy $INSTDIR $GivenFolder
  ${If} $INSTDIR == ""
    ReadRegStr $INSTDIR HKLM "${UNINSTALL_KEY}" "InstallLocation"
  ${EndIf}
  ${If} $INSTDIR == ""
    StrCpy $INSTDIR "$PROGRAMFILES\${NAME}"
  ${EndIf}
FunctionEnd

Function .onInit
  StrCpy $GivenFolder $INSTDIR
  UserInfo::GetAccountType
  Pop $Rights
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/AllUsers" $1
  ${If} ${Errors}
    Call InstallForUser
  ${ElseIf} $Rights == "Admin"
    Call InstallForMachine
  ${Else}
    MessageBox MB_OK|MB_ICONSTOP "Para instalar Kestra en la máquina hay que ser administrador." /SD IDOK
    SetErrorLevel 2
    Quit
  ${EndIf}
FunctionEnd

Function AskForWhom
  ${If} $Rights != "Admin"
    Abort
  ${EndIf}
  !insertmacro MUI_HEADER_TEXT "Para quién" "Kestra se puede instalar para este usuario o para todos los de la máquina."
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateRadioButton} 0 20u 100% 12u "Para &este usuario"
  Pop $1
  ${NSD_Check} $1
  ${NSD_CreateRadioButton} 0 40u 100% 12u "Para &todos los usuarios de la máquina"
  Pop $ForMachine
  nsDialogs::Show
FunctionEnd

Function TakeForWhom
  ${NSD_GetState} $ForMachine $0
  ${If} $0 == ${BST_CHECKED}
    Call InstallForMachine
  ${Else}
    Call InstallForUser
  ${EndIf}
FunctionEnd

; For whom it was installed is what the list of programs says.
Function un.onInit
  SetShellVarContext current
  ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 == $INSTDIR
    SetShellVarContext all
  ${EndIf}
FunctionEnd

; What the last version has put there and this one no longer has goes: all of it is ours but Fiscal.ini.
!macro RemoveOurFiles
  RMDir /r "$INSTDIR\x86"
  RMDir /r "$INSTDIR\x64"
  RMDir /r "$INSTDIR\Fiscal"
  RMDir /r "$INSTDIR\declaraciones"
  RMDir /r "$INSTDIR\ejemplos"
  RMDir /r "$INSTDIR\include"
  RMDir /r "$INSTDIR\manual"
  RMDir /r "$INSTDIR\documentos"
  RMDir /r "$INSTDIR\avisos"
  Delete "$INSTDIR\LEAME.txt"
!macroend

!macro RemoveMenu
  RMDir /r "$SMPROGRAMS\${NAME}"
!macroend

Section
  SetOutPath "$INSTDIR"
  ; The settings that nobody has touched are replaced; those that somebody wrote stay.
  Call ForgetUntouchedSettings
  !insertmacro RemoveOurFiles
  File /r "${TREE}/*.*"
  ${IfNot} ${FileExists} "$INSTDIR\Fiscal.ini"
    SetOutPath "$INSTDIR"
    File "${TREE}/Fiscal/TQ/Fiscal.ini"
  ${EndIf}
  WriteUninstaller "$INSTDIR\desinstalar.exe"

  !insertmacro RemoveMenu
  CreateDirectory "$SMPROGRAMS\${NAME}"
  CreateShortCut "$SMPROGRAMS\${NAME}\Manual.lnk" "$INSTDIR\manual\index.html"
  CreateShortCut "$SMPROGRAMS\${NAME}\Impresora virtual.lnk" "$INSTDIR\x64\impresora-virtual.exe" \
    "--familia TQ --tcp 127.0.0.1:4001 --panel 127.0.0.1:8080"
  WriteINIStr "$SMPROGRAMS\${NAME}\Panel de la impresora virtual.url" "InternetShortcut" "URL" "http://127.0.0.1:8080/"
  CreateShortCut "$SMPROGRAMS\${NAME}\Desinstalar.lnk" "$INSTDIR\desinstalar.exe"

  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "${NAME}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\desinstalar.exe"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\desinstalar.exe"'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\desinstalar.exe" /S'
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

; $INSTDIR\Fiscal.ini, if it is what the installer had put there.
!macro ForgetUntouchedSettings un
Function ${un}ForgetUntouchedSettings
  IfFileExists "$INSTDIR\Fiscal.ini" 0 done
  IfFileExists "$INSTDIR\Fiscal\TQ\Fiscal.ini" 0 done
  StrCpy $R7 same
  ${TextCompare} "$INSTDIR\Fiscal.ini" "$INSTDIR\Fiscal\TQ\Fiscal.ini" "SlowDiff" "${un}Differs"
  StrCmp $R7 same 0 done
  ${TextCompare} "$INSTDIR\Fiscal\TQ\Fiscal.ini" "$INSTDIR\Fiscal.ini" "SlowDiff" "${un}Differs"
  StrCmp $R7 same 0 done
  Delete "$INSTDIR\Fiscal.ini"
done:
FunctionEnd

Function ${un}Differs
  StrCpy $R7 changed
  StrCpy $0 StopTextCompare
  Push $0
FunctionEnd
!macroend
!insertmacro ForgetUntouchedSettings ""
!insertmacro ForgetUntouchedSettings "un."

Section "Uninstall"
  Call un.ForgetUntouchedSettings
  !insertmacro RemoveOurFiles
  Delete "$INSTDIR\desinstalar.exe"
  RMDir "$INSTDIR"
  !insertmacro RemoveMenu
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
SectionEnd
