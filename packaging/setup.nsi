; The installer for the machine or for one user. packaging/setup calls makensis with the program's facts as
; defines and with files.nsh, which it generates from the stage: the macros InstallFiles, RemoveFiles and
; EachProgram.
;
; One executable serves both modes, and neither asks for rights that it does not need: the manifest asks for
; none ("highest" would make an administrator confirm even an installation for one user, "admin" would let
; nobody else make one), and for the machine the installer starts itself again with the verb "runas". Who has
; the rights already, such as a deployment service, is not asked.
Unicode true
Target amd64-unicode
RequestExecutionLevel user
ManifestDPIAware true
ManifestLongPathAware true
SetCompressor /SOLID lzma
; A file that cannot be written ends the installation; it must not be skipped, least of all silently.
AllowSkipFiles off
CRCCheck on
AutoCloseWindow false
ShowInstDetails nevershow
ShowUninstDetails nevershow

!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include WinMessages.nsh
!include WordFunc.nsh
!include "${FILES}"

Name "${NAME}"
OutFile "${OUTPUT}"
BrandingText "${NAME} ${VERSION}"
Caption "${NAME} ${VERSION} Setup"
; Empty, to detect whether /D= gave a directory.
InstallDir ""

VIProductVersion "${VERSION_RESOURCE}"
VIFileVersion "${VERSION_RESOURCE}"
VIAddVersionKey CompanyName "${PUBLISHER}"
VIAddVersionKey FileDescription "${NAME} Setup"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey LegalCopyright "${COPYRIGHT}"
VIAddVersionKey ProductName "${NAME}"
VIAddVersionKey ProductVersion "${VERSION}"

; The program takes each entry below the Uninstall keys whose name contains "MVTec HALCON" and a version for
; an installation of HALCON. This name contains neither.
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall"
!define ENTRY "${UNINSTALL}\${NAME}"

; The exit codes; 0, 1 (cancelled) and 2 (a file could not be written) are NSIS's own.
!define EXIT_FAILED 2
!define EXIT_RUNNING 3
!define EXIT_NEWER 4
!define EXIT_RIGHTS 5
!define EXIT_OTHER_INSTALLER 6
!define EXIT_DIRECTORY 7

!define FOR_ONE_USER "Making a version permanent, and copying licence files into protected directories, is not \
  possible then: what acts with administrator rights has to lie where only administrators can write."

Var Parameters
Var IsForUser     ; 1 or empty
Var IsElevated    ; 1 in the process that was started to have administrator rights
Var ModeText
Var InstalledDir  ; of the installed version, or empty
Var InstalledVersion

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
; No page at the end offers to start the program: it would run with administrator rights.
!define MUI_DIRECTORYPAGE_TEXT_TOP "$ModeText"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

; Says why nothing is done and ends with an exit code.
!macro Refuse CODE TEXT
  MessageBox MB_OK|MB_ICONEXCLAMATION "${TEXT}" /SD IDOK
  SetErrorLevel ${CODE}
  Quit
!macroend

; Sets $0 to Admin when this process has administrator rights.
!macro GetRights
  !ifdef PRETEND_UNPRIVILEGED
    ; A way to test a first process without rights where every process has them.
    StrCpy $0 User
    ${If} $IsElevated == 1
      StrCpy $0 Admin
    ${EndIf}
  !else
    UserInfo::GetAccountType
    Pop $0
  !endif
!macroend

; Starts the executable $1 with the parameters $2 and administrator rights, and waits for it. $0: its exit
; code, or empty when it could not be started or the user declined.
!macro RunElevated
  ; A SHELLEXECUTEINFOW with SEE_MASK_NOCLOSEPROCESS and SEE_MASK_NOASYNC.
  System::Call '*(i 112, i 0x140, p 0, w "runas", w r1, w r2, p 0, i 1, i 0, p 0, p 0, p 0, p 0, i 0, i 0, p 0, p 0) p .r3'
  System::Call 'shell32::ShellExecuteExW(p r3) i .r4'
  StrCpy $0 ""
  ${If} $4 <> 0
    System::Call '*$3(i, i, p, p, p, p, p, i, i, p, p, p, p, i, i, p, p .r5)'
    System::Call 'kernel32::WaitForSingleObject(p r5, i -1)'
    System::Call 'kernel32::GetExitCodeProcess(p r5, *i .r0)'
    System::Call 'kernel32::CloseHandle(p r5)'
  ${EndIf}
  System::Free $3
!macroend

; Adds a program in the directory $1 to the list $2 when it is running, whoever has started it: Windows then
; refuses write access to it.
!macro AddIfRunning PROGRAM
  StrCpy $3 "$1\${PROGRAM}"
  ; GENERIC_WRITE, sharing all, OPEN_EXISTING.
  System::Call 'kernel32::CreateFileW(w r3, i 0x40000000, i 7, p 0, i 3, i 0, p 0) p .r4 ?e'
  Pop $5
  ${If} $4 P<> -1
    System::Call 'kernel32::CloseHandle(p r4)'
  ${ElseIf} $5 = 32 ; ERROR_SHARING_VIOLATION
    StrCpy $2 "$2$\r$\n$3"
  ${EndIf}
!macroend

!macro SharedFunctions UN
  ; Goes on only when no program in the directory $1 is running. Never ends a program itself.
  Function ${UN}RefuseWhileRunning
    StrCpy $6 0
    again:
    StrCpy $2 ""
    !insertmacro EachProgram AddIfRunning
    ${If} $2 == ""
      Return
    ${EndIf}
    ${If} ${Silent}
      ; A virus scanner, too, may keep a file open for a moment.
      IntOp $6 $6 + 1
      ${If} $6 < 5
        Sleep 200
        Goto again
      ${EndIf}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
      "This is running, perhaps in another user's session:$\r$\n$2$\r$\n$\r$\nClose it and try again." \
      /SD IDCANCEL IDRETRY again
    SetErrorLevel ${EXIT_RUNNING}
    Quit
  FunctionEnd
!macroend
!insertmacro SharedFunctions ""
!insertmacro SharedFunctions un.

!include "${SCRIPTS}/setup-install.nsh"
!include "${SCRIPTS}/setup-uninstall.nsh"
