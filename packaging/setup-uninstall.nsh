; Included by setup.nsi: the uninstaller. It removes only known files, never a whole directory, because /D=
; may have named one with other files in it.

Var IsUpgrade  ; 1 when a newer version is about to replace this one
Var IsEntered  ; 1 when Windows's list of apps names this directory

!ifdef SIGN
  !uninstfinalize '"${SIGN}" "%1"' = 0
!endif

; The directory $0 without short names, such as C:\PROGRA~1. One that is not there stays as it is.
Function un.LongName
  System::Call 'kernel32::GetLongPathNameW(w r0, w .r1, i ${NSIS_MAX_STRLEN}) i .r2'
  ${If} $2 > 0
  ${AndIf} $2 < ${NSIS_MAX_STRLEN}
    StrCpy $0 $1
  ${EndIf}
FunctionEnd

; Which of the two it was installed for, by what Windows's list of apps says.
Function un.ReadMode
  SetShellVarContext all
  StrCpy $0 $INSTDIR
  Call un.LongName
  StrCpy $3 $0
  ReadRegStr $0 HKLM "${ENTRY}" InstallLocation
  Call un.LongName
  ${If} $0 == $3
    StrCpy $IsEntered 1
    Return
  ${EndIf}
  ReadRegStr $0 HKCU "${ENTRY}" InstallLocation
  Call un.LongName
  ${If} $0 == $3
    StrCpy $IsEntered 1
    StrCpy $IsForUser 1
    SetShellVarContext current
  ${EndIf}
FunctionEnd

Function un.GetRightsForMachine
  !insertmacro GetRights
  ${If} $0 == Admin
    Return
  ${EndIf}
  StrCpy $0 ""
  ${If} $IsElevated == ""
    ; The installed uninstaller, not the copy that NSIS has made where the user can write.
    StrCpy $1 "$INSTDIR\uninstall.exe"
    StrCpy $2 "$Parameters /Elevated"
    ${If} $EXEDIR == $INSTDIR
      ; _?= makes it run in place, so that its end can be waited for.
      StrCpy $2 "$2 _?=$INSTDIR"
    ${EndIf}
    !insertmacro RunElevated
  ${EndIf}
  ${If} $0 == ""
    !insertmacro Refuse ${EXIT_RIGHTS} "Only an administrator can remove ${NAME}: it is installed for all users of \
      this machine."
  ${EndIf}
  SetErrorLevel $0
  Quit
FunctionEnd

Function un.onInit
  ${GetParameters} $Parameters
  ${GetOptions} $Parameters "/Elevated" $0
  ${IfNot} ${Errors}
    StrCpy $IsElevated 1
  ${EndIf}
  ${GetOptions} $Parameters "/Upgrade" $0
  ${IfNot} ${Errors}
    StrCpy $IsUpgrade 1
  ${EndIf}
  Call un.ReadMode
  ${If} $IsForUser == ""
    Call un.GetRightsForMachine
  ${EndIf}
FunctionEnd

Section Uninstall
  StrCpy $1 $INSTDIR
  Call un.RefuseWhileRunning

  SetOutPath $TEMP ; a process's working directory cannot be removed
  Delete "$INSTDIR\qz_com_helper.txt"
  Delete "$INSTDIR\uninstall.exe"
  ${If} $IsUpgrade == ""
    ; An upgrade keeps it: the user may have put it there.
    Delete "$INSTDIR\vswhere.exe"
  ${EndIf}
  !insertmacro RemoveFiles
  RMDir "$INSTDIR"

  ; An upgrade keeps the Start menu entries, and the entry in the list of apps until it is complete.
  ${If} $IsUpgrade == ""
  ${AndIf} $IsEntered == 1
    Delete "$SMPROGRAMS\${NAME}\${NAME}.lnk"
    Delete "$SMPROGRAMS\${NAME}\Guide to ${NAME}.lnk"
    RMDir "$SMPROGRAMS\${NAME}"
    DeleteRegKey SHCTX "${ENTRY}"
    ${If} $IsForUser == 1
      ; Unlike the machine, a user may not have had these keys before.
      DeleteRegKey /ifempty HKCU "${UNINSTALL}"
      RMDir "$LOCALAPPDATA\Programs"
    ${EndIf}
  ${EndIf}
SectionEnd
