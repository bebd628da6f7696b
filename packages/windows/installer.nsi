; The installer. makensis -DVERSION=... -DTREE=folder -DTARGET=file.exe -DICON=file.ico
;
; /S is silent; /AllUsers installs for the machine, without it for the user; /Puerta makes the door a service of the
; machine; /D=folder is the last word, unquoted.
; It writes into its folder, the start menu and the list of installed programs, and nowhere else: the library needs no
; registering. The service, which nobody gets unasked, has a folder of its own among the machine's data. A Fiscal.ini that is
; there already stays, and so does the service's configuration; one that was changed outlives uninstalling.
Unicode true
SetCompressor /SOLID lzma
!define NAME "Kestra"
!define SERVICE "kestra-puerta"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Kestra"

; For the user nothing asks for an administrator; whoever wants it for the machine starts it as one.
RequestExecutionLevel user
!include MUI2.nsh
!include nsDialogs.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include TextFunc.nsh
!include Sections.nsh

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
!insertmacro MUI_PAGE_COMPONENTS
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
Var WholeMachine
Var ServiceWasThere
Var ServiceData
Var Placed
Var Original

Function InstallForUser
  SetShellVarContext current
  StrCpy $WholeMachine no
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
  StrCpy $WholeMachine yes
  StrCpy $INSTDIR $GivenFolder
  ${If} $INSTDIR == ""
    ReadRegStr $INSTDIR HKLM "${UNINSTALL_KEY}" "InstallLocation"
  ${EndIf}
  ${If} $INSTDIR == ""
    StrCpy $INSTDIR "$PROGRAMFILES\${NAME}"
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
  StrCpy $WholeMachine no
  ${If} $0 == $INSTDIR
    SetShellVarContext all
    StrCpy $WholeMachine yes
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
  RMDir /r "$INSTDIR\puerta"
  Delete "$INSTDIR\LEAME.txt"
!macroend

!macro RemoveMenu
  RMDir /r "$SMPROGRAMS\${NAME}"
!macroend

; A service that is at work has its program's file.
!macro StopService
  StrCpy $ServiceData "$APPDATA\${NAME}\puerta"
  nsExec::Exec 'sc query ${SERVICE}'
  Pop $ServiceWasThere
  ${If} $ServiceWasThere == 0
    nsExec::Exec 'net stop ${SERVICE}'
    Pop $0
  ${EndIf}
!macroend

Section
  SetOutPath "$INSTDIR"
  ${If} $WholeMachine == yes
    !insertmacro StopService
  ${EndIf}
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

; Known to the system, begun with the machine, with no more rights than it needs; its folder is for it and for who
; administers. It is started by whoever has told it of the printers.
Section /o "La puerta, como servicio" DoorService
  ${If} $WholeMachine != yes
    MessageBox MB_OK|MB_ICONEXCLAMATION "El servicio es de la máquina entera: se instala para todos los usuarios." /SD IDOK
    SetErrorLevel 3
    Return
  ${EndIf}
  CreateDirectory "$ServiceData\caja1"
  ${IfNot} ${FileExists} "$ServiceData\puerta.json"
    CopyFiles /SILENT "$INSTDIR\puerta\puerta.json" "$ServiceData"
  ${EndIf}
  ${IfNot} ${FileExists} "$ServiceData\caja1\Fiscal.ini"
    CopyFiles /SILENT "$INSTDIR\puerta\caja1\Fiscal.ini" "$ServiceData\caja1"
  ${EndIf}
  nsExec::Exec 'icacls "$ServiceData" /inheritance:r /grant *S-1-5-18:(OI)(CI)F *S-1-5-32-544:(OI)(CI)F *S-1-5-19:(OI)(CI)M'
  Pop $0
  ${If} $ServiceWasThere != 0
    nsExec::Exec 'sc create ${SERVICE} binPath= "\"$INSTDIR\x64\kestra-puerta.exe\" --servicio --configuracion \"$ServiceData\puerta.json\"" \
      DisplayName= "Kestra: la puerta" start= auto obj= "NT AUTHORITY\LocalService"'
    Pop $0
    ${If} $0 != 0
      MessageBox MB_OK|MB_ICONSTOP "El sistema no aceptó el servicio." /SD IDOK
      SetErrorLevel 4
    ${EndIf}
  ${EndIf}
SectionEnd

; One that was there goes on with what is new.
Section
  ${If} $WholeMachine == yes
  ${AndIf} $ServiceWasThere == 0
    nsExec::Exec 'net start ${SERVICE}'
    Pop $0
  ${EndIf}
SectionEnd

; $Placed goes, if it is what the installer had put there: $Original.
!macro ForgetUntouchedSettings un
Function ${un}ForgetUntouched
  IfFileExists "$Placed" 0 done
  IfFileExists "$Original" 0 done
  StrCpy $R7 same
  ${TextCompare} "$Placed" "$Original" "SlowDiff" "${un}Differs"
  StrCmp $R7 same 0 done
  ${TextCompare} "$Original" "$Placed" "SlowDiff" "${un}Differs"
  StrCmp $R7 same 0 done
  Delete "$Placed"
done:
FunctionEnd

Function ${un}ForgetUntouchedSettings
  StrCpy $Placed "$INSTDIR\Fiscal.ini"
  StrCpy $Original "$INSTDIR\Fiscal\TQ\Fiscal.ini"
  Call ${un}ForgetUntouched
FunctionEnd

Function ${un}Differs
  StrCpy $R7 changed
  StrCpy $0 StopTextCompare
  Push $0
FunctionEnd
!macroend
!insertmacro ForgetUntouchedSettings ""
!insertmacro ForgetUntouchedSettings "un."

Function .onInit
  StrCpy $GivenFolder $INSTDIR
  UserInfo::GetAccountType
  Pop $Rights
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/Puerta" $1
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${DoorService}
  ${EndIf}
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

; What the service had was written by it or by somebody: that stays, as a Fiscal.ini does.
Function un.RemoveService
  ${If} $WholeMachine != yes
    Return
  ${EndIf}
  !insertmacro StopService
  ${If} $ServiceWasThere != 0
    Return
  ${EndIf}
  nsExec::Exec 'sc delete ${SERVICE}'
  Pop $0
  StrCpy $Placed "$ServiceData\puerta.json"
  StrCpy $Original "$INSTDIR\puerta\puerta.json"
  Call un.ForgetUntouched
  StrCpy $Placed "$ServiceData\caja1\Fiscal.ini"
  StrCpy $Original "$INSTDIR\puerta\caja1\Fiscal.ini"
  Call un.ForgetUntouched
  RMDir "$ServiceData\caja1"
  RMDir "$ServiceData"
  RMDir "$APPDATA\${NAME}"
FunctionEnd

Section "Uninstall"
  Call un.RemoveService
  Call un.ForgetUntouchedSettings
  !insertmacro RemoveOurFiles
  Delete "$INSTDIR\desinstalar.exe"
  RMDir "$INSTDIR"
  !insertmacro RemoveMenu
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
SectionEnd
