; Included by setup.nsi: the installer.

Function ReadInstalled
  ReadRegStr $InstalledDir SHCTX "${ENTRY}" InstallLocation
  ReadRegStr $InstalledVersion SHCTX "${ENTRY}" DisplayVersion
FunctionEnd

Function InstallForUser
  StrCpy $IsForUser 1
  SetShellVarContext current
  StrCpy $ModeText "${NAME} ${VERSION} will be installed for you alone. ${FOR_ONE_USER}"
  Call ReadInstalled
FunctionEnd

Function InstallForMachine
  StrCpy $IsForUser ""
  SetShellVarContext all
  StrCpy $ModeText "${NAME} ${VERSION} will be installed for all users of this machine."
  Call ReadInstalled
FunctionEnd

; For the machine, unless asked otherwise by a switch or, in a window, by a user who has installed one before.
Function ChooseMode
  ${GetOptions} $Parameters "/CurrentUser" $0
  ${IfNot} ${Errors}
    Call InstallForUser
    Return
  ${EndIf}
  ${GetOptions} $Parameters "/AllUsers" $0
  ${If} ${Errors}
  ${AndIf} $IsElevated == ""
  ${AndIfNot} ${Silent}
    ReadRegStr $0 HKCU "${ENTRY}" InstallLocation
    ReadRegStr $1 HKLM "${ENTRY}" InstallLocation
    ${If} $0 != ""
    ${AndIf} $1 == ""
      MessageBox MB_YESNOCANCEL|MB_ICONQUESTION "${NAME} is installed for you alone. Install this version for you \
        alone, too?$\r$\n$\r$\nNo installs it for all users of this machine, beside yours." IDYES user IDNO machine
      SetErrorLevel 1
      Quit
      user:
      Call InstallForUser
      Return
      machine:
    ${EndIf}
  ${EndIf}
  Call InstallForMachine
FunctionEnd

; When administrator rights are needed, starts a process that has them and ends with its exit code.
Function GetRightsForMachine
  !insertmacro GetRights
  ${If} $0 == Admin
    Return
  ${EndIf}
  StrCpy $0 ""
  ${If} $IsElevated == ""
    StrCpy $1 $EXEPATH
    StrCpy $2 "$Parameters /Elevated"
    ${If} $INSTDIR != ""
      ; NSIS takes the rest of the command line as the directory.
      StrCpy $2 "$2 /D=$INSTDIR"
    ${EndIf}
    !insertmacro RunElevated
  ${EndIf}
  ${If} $0 != ""
    SetErrorLevel $0
    Quit
  ${EndIf}
  MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "Without administrator rights ${NAME} can be installed for you \
    alone. ${FOR_ONE_USER}$\r$\n$\r$\nInstall it for you alone?" /SD IDNO IDYES user
  SetErrorLevel ${EXIT_RIGHTS}
  Quit
  user:
  Call InstallForUser
FunctionEnd

; The MSI package uses the same directory and the same Start menu entries.
Function RefuseBesideMsi
  System::Call '$SYSDIR\msi.dll::MsiEnumRelatedProductsW(w "${UPGRADE_CODE}", i 0, i 0, w .r0) i .r1'
  ${If} $1 = 0
    !insertmacro Refuse ${EXIT_OTHER_INSTALLER} "${NAME} has been installed for this machine by its MSI package. \
      Upgrade it with a newer MSI package, or remove it first, in Windows's list of apps or by$\r$\n$\r$\n\
      msiexec /x $0"
  ${EndIf}
FunctionEnd

Function RefuseDowngrade
  ${VersionCompare} "$InstalledVersion" "${VERSION}" $0
  ; One whose directory was deleted by hand cannot be removed first.
  ${If} $0 = 1
  ${AndIf} ${FileExists} "$InstalledDir\uninstall.exe"
    !insertmacro Refuse ${EXIT_NEWER} "${NAME} $InstalledVersion is installed, which is newer than ${VERSION}. To go \
      back, remove the newer version first.$\r$\n$\r$\n$InstalledDir"
  ${EndIf}
FunctionEnd

; NSIS ignores a directory that is not a full path, and the switch when it is not the last one or is in
; quotes. It removes quotes around the directory, and with them parts of non-ASCII characters.
Function RefuseOddDirectory
  System::Call 'kernel32::GetCommandLineW() w .r0'
  ${WordFind} "$0" "/D=" "E+1}" $1
  ${If} ${Errors}
    Return
  ${EndIf}
  ${WordFind} "$1" "$\"" "E+1{" $2
  ${IfNot} ${Errors}
  ${OrIf} $INSTDIR == ""
    !insertmacro Refuse ${EXIT_DIRECTORY} "/D= takes a whole path, such as C:\Tools\${NAME}. It has to be the last \
      switch, and there must be no quotes, however many spaces the path has."
  ${EndIf}
FunctionEnd

Function ChooseDirectory
  ${If} $INSTDIR == ""
    ${If} $InstalledDir != ""
      StrCpy $INSTDIR $InstalledDir
    ${ElseIf} $IsForUser == 1
      StrCpy $INSTDIR "$LOCALAPPDATA\Programs\${NAME}"
    ${Else}
      StrCpy $INSTDIR "$PROGRAMFILES64\${NAME}"
    ${EndIf}
  ${EndIf}
FunctionEnd

Function .onInit
  ${GetParameters} $Parameters
  ${GetOptions} $Parameters "/?" $0
  ${IfNot} ${Errors}
    MessageBox MB_OK|MB_ICONINFORMATION "Switches of this installer:$\r$\n$\r$\n\
      /CurrentUser$\tinstall for you alone, without administrator rights$\r$\n\
      /AllUsers$\t$\tinstall for the machine, without asking$\r$\n\
      /S$\t$\tshow no window$\r$\n\
      /D=C:\directory$\tinstall there; the last switch, without quotes" /SD IDOK
    SetErrorLevel 0
    Quit
  ${EndIf}
  ${GetOptions} $Parameters "/Elevated" $0
  ${IfNot} ${Errors}
    StrCpy $IsElevated 1
  ${EndIf}
  ; The process with administrator rights does not get what NSIS has passed over.
  Call RefuseOddDirectory
  Call ChooseMode
  ${If} $IsForUser == ""
    Call GetRightsForMachine
  ${EndIf}
  ${If} $IsForUser == ""
    Call RefuseBesideMsi
  ${EndIf}
  Call RefuseDowngrade
  Call ChooseDirectory
FunctionEnd

; Removes the files of the installed version by that version's own list: the new one may not have them all. A
; copy of its uninstaller does it, because a running program cannot remove its own file.
Function RemoveInstalled
  ${IfNot} ${FileExists} "$InstalledDir\uninstall.exe"
    Return
  ${EndIf}
  StrCpy $0 "/Upgrade"
  ${If} $InstalledDir != $INSTDIR
    StrCpy $0 ""
  ${EndIf}
  InitPluginsDir
  ClearErrors
  CopyFiles /SILENT "$InstalledDir\uninstall.exe" "$PLUGINSDIR\uninstall-old.exe"
  ; This process has the rights that the uninstaller needs.
  ExecWait '"$PLUGINSDIR\uninstall-old.exe" /S /Elevated $0 _?=$InstalledDir' $1
  ${If} ${Errors}
    StrCpy $1 ${EXIT_FAILED}
  ${EndIf}
  ${If} $1 <> 0
    !insertmacro Refuse $1 "${NAME} $InstalledVersion could not be removed from $InstalledDir: its uninstaller ended \
      with exit code $1."
  ${EndIf}
FunctionEnd

; vswhere.exe finds Visual Studio 2017 and later. Visual Studio's own installer keeps one up to date.
Function InstallVswhere
  !ifdef VSWHERE
    File "/oname=$INSTDIR\vswhere.exe" "${VSWHERE}"
  !endif
  ; Not $PROGRAMFILES32, which is the directory for 64-bit programs here. A user cannot change the registry's
  ; value in wait for an administrator who installs; the environment's value they can.
  ReadRegStr $0 HKLM "Software\Microsoft\Windows\CurrentVersion" "ProgramFilesDir (x86)"
  ${If} $0 == ""
    ReadEnvStr $0 "ProgramFiles(x86)"
  ${EndIf}
  StrCpy $0 "$0\Microsoft Visual Studio\Installer\vswhere.exe"
  ${If} ${FileExists} $0
    StrCpy $1 "$INSTDIR\vswhere.exe"
    System::Call 'kernel32::CopyFileW(w r0, w r1, i 0)'
  ${EndIf}
FunctionEnd

Section
  StrCpy $1 $INSTDIR
  Call RefuseWhileRunning
  ${If} $InstalledDir != ""
    StrCpy $1 $InstalledDir
    Call RefuseWhileRunning
    Call RemoveInstalled
  ${EndIf}

  !insertmacro InstallFiles
  ${If} $IsForUser == ""
    !insertmacro InstallHelper
  ${Else}
    ; The helper asks for administrator rights. Where the user can write, so can every program of the user,
    ; and replace the helper by something to which the user then agrees. The program looks for this file to
    ; say why there is no helper.
    FileOpen $0 "$INSTDIR\qz_com_helper.txt" w
    FileWrite $0 "${NAME} is installed for one user alone. ${FOR_ONE_USER}$\r$\n"
    FileClose $0
  ${EndIf}
  Call InstallVswhere
  WriteUninstaller "$INSTDIR\uninstall.exe"

  SetOutPath $INSTDIR
  CreateDirectory "$SMPROGRAMS\${NAME}"
  CreateShortCut "$SMPROGRAMS\${NAME}\${NAME}.lnk" "$INSTDIR\corvanta.exe"
  CreateShortCut "$SMPROGRAMS\${NAME}\Guide to ${NAME}.lnk" "$INSTDIR\guide.html"

  WriteRegStr SHCTX "${ENTRY}" DisplayName "${NAME}"
  WriteRegStr SHCTX "${ENTRY}" DisplayVersion "${VERSION}"
  WriteRegStr SHCTX "${ENTRY}" Publisher "${PUBLISHER}"
  WriteRegStr SHCTX "${ENTRY}" DisplayIcon "$INSTDIR\corvanta.exe,0"
  WriteRegStr SHCTX "${ENTRY}" InstallLocation "$INSTDIR"
  WriteRegStr SHCTX "${ENTRY}" URLInfoAbout "${HOME_PAGE}"
  WriteRegStr SHCTX "${ENTRY}" HelpLink "${CONTACT_PAGE}"
  WriteRegStr SHCTX "${ENTRY}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX "${ENTRY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD SHCTX "${ENTRY}" EstimatedSize ${SIZE}
  WriteRegDWORD SHCTX "${ENTRY}" NoModify 1
  WriteRegDWORD SHCTX "${ENTRY}" NoRepair 1
SectionEnd
