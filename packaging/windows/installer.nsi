; The installer for one user, who needs no rights of an administrator. scripts/make_windows.sh calls it with
;   VERSION    of the program
;   STAGE      the folder of what is installed
;   OUT        the installer to write
;   INCLUDES   a folder with files.nsh, which it made from STAGE: the macros InstallFiles, RemoveFiles and
;              RemoveCopies
; /S on the command line installs and removes without a question, /D=FOLDER as the last argument chooses the folder.
Unicode true
ManifestDPIAware true
ManifestSupportedOS Win10
SetCompressor /SOLID lzma
RequestExecutionLevel user

!include MUI2.nsh
!addincludedir "${INCLUDES}"
!include files.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\TORVALE"
!define CLASSES "Software\Classes"
!define PROGRAM "$INSTDIR\bin\torvale.exe"

Name "TORVALE"
BrandingText "TORVALE ${VERSION}"
OutFile "${OUT}"
InstallDir "$LOCALAPPDATA\Programs\TORVALE"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "TORVALE"
VIAddVersionKey "CompanyName" "TORVALE developers"
VIAddVersionKey "FileDescription" "TORVALE installer"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "TORVALE developers; GNU General Public License, version 3 or later"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_RUN "${PROGRAM}"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; An extension is TORVALE's where nobody has it yet; else its menu Open with offers TORVALE and the other one stays.
!macro RegisterKind EXTENSION CLASS DESCRIPTION TAKE
  WriteRegStr HKCU "${CLASSES}\${CLASS}" "" "${DESCRIPTION}"
  WriteRegStr HKCU "${CLASSES}\${CLASS}\DefaultIcon" "" "${PROGRAM},0"
  WriteRegStr HKCU "${CLASSES}\${CLASS}\shell\open\command" "" '"${PROGRAM}" "%1"'
  WriteRegStr HKCU "${CLASSES}\${EXTENSION}\OpenWithProgids" "${CLASS}" ""
  !if "${TAKE}" == "take"
    ReadRegStr $0 HKCR "${EXTENSION}" ""
    StrCmp $0 "" 0 +2
    WriteRegStr HKCU "${CLASSES}\${EXTENSION}" "" "${CLASS}"
  !endif
!macroend

!macro ForgetKind EXTENSION CLASS
  DeleteRegKey HKCU "${CLASSES}\${CLASS}"
  DeleteRegValue HKCU "${CLASSES}\${EXTENSION}\OpenWithProgids" "${CLASS}"
  DeleteRegKey /ifempty HKCU "${CLASSES}\${EXTENSION}\OpenWithProgids"
  ReadRegStr $0 HKCU "${CLASSES}\${EXTENSION}" ""
  StrCmp $0 "${CLASS}" 0 +2
  DeleteRegValue HKCU "${CLASSES}\${EXTENSION}" ""
  DeleteRegKey /ifempty HKCU "${CLASSES}\${EXTENSION}"
!macroend

; The program copies guide and samples to the user's folder and marks them as only to be read. What isn't marked so is
; the user's own.
!define OWN "$APPDATA\TORVALE\TORVALE"
!macro RemoveCopy NAME
  System::Call 'kernel32::GetFileAttributesW(w "${OWN}\${NAME}") i .r0'
  IntOp $0 $0 & 1
  StrCmp $0 "1" 0 +2
  Delete "${OWN}\${NAME}"
!macroend

; Lets the desktop look at the kinds of files anew.
!macro TellDesktop
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Section
  ; An older release may have had files that this one lacks.
  IfFileExists "$INSTDIR\uninstall.exe" 0 +2
  ExecWait '"$INSTDIR\uninstall.exe" /S _?=$INSTDIR'
  !insertmacro InstallFiles
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ; The shortcut's folder to start in: a design without a folder is saved there.
  SetOutPath "$DOCUMENTS"
  CreateShortcut "$SMPROGRAMS\TORVALE.lnk" "${PROGRAM}" "" "${PROGRAM}" 0 SW_SHOWNORMAL "" "Furrow irrigation design"
  !insertmacro RegisterKind ".pfd" "TORVALE.PlannedField" "TORVALE planned field design" take
  !insertmacro RegisterKind ".csd" "TORVALE.ConstantSlope" "TORVALE constant slope design" take
  !insertmacro RegisterKind ".dsd" "TORVALE.DualSlope" "TORVALE dual slope design" take
  !insertmacro RegisterKind ".csh" "TORVALE.ComputerHoles" "TORVALE computer selected holes design" take
  !insertmacro RegisterKind ".xfd" "TORVALE.ExistingField" "TORVALE existing field design" take
  !insertmacro RegisterKind ".lhd" "TORVALE.LimitedHoles" "TORVALE limited hole selection design" take
  !insertmacro RegisterKind ".dat" "TORVALE.Survey" "TORVALE survey" offer
  WriteRegStr HKCU "Software\Microsoft\Windows\CurrentVersion\App Paths\torvale.exe" "" "${PROGRAM}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "TORVALE"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "TORVALE developers"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "${PROGRAM},0"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" ${KILOBYTES}
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
  !insertmacro TellDesktop
SectionEnd

Section Uninstall
  !insertmacro RemoveFiles
  !insertmacro RemoveCopies
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  ; It may have been made for this program alone; where it holds another it stays.
  RMDir "$LOCALAPPDATA\Programs"
  Delete "$SMPROGRAMS\TORVALE.lnk"
  !insertmacro ForgetKind ".pfd" "TORVALE.PlannedField"
  !insertmacro ForgetKind ".csd" "TORVALE.ConstantSlope"
  !insertmacro ForgetKind ".dsd" "TORVALE.DualSlope"
  !insertmacro ForgetKind ".csh" "TORVALE.ComputerHoles"
  !insertmacro ForgetKind ".xfd" "TORVALE.ExistingField"
  !insertmacro ForgetKind ".lhd" "TORVALE.LimitedHoles"
  !insertmacro ForgetKind ".dat" "TORVALE.Survey"
  DeleteRegKey HKCU "Software\Microsoft\Windows\CurrentVersion\App Paths\torvale.exe"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  !insertmacro TellDesktop
SectionEnd
