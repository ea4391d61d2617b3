; The installer for 64-bit Windows; scripts/package.sh runs makensis on it.
;
; WrenDeck lives in the folder of another program, among that program's files and the user's. So it
; asks for a folder that holds Wren.exe and refuses every other, and it removes nothing that it has not
; put there itself, byte for byte.
;
;   /S            without windows; the result is the exit code below
;   /ASSOCIATE    with the file associations, which are otherwise a tick on a page
;   /D=FOLDER     the folder; the last word, without quotes
;
; Exit codes: 0 done, 1 cancelled by the user, 2 no Wren.exe in the folder, 3 the folder may not be
; written to, 4 WrenDeck runs.
;
; Defined by the caller: VERSION, CONTENTS (a folder with what is installed), RESULT, and PAGES, a script
; with the macros InstallPages and RemovePages: InstallPage and RemovePage for each file of Info.

Target amd64-unicode
!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include Sections.nsh
!include "${PAGES}"

!define OWN "WrenDeck-setup" ; inside the host's folder: what the installer needs later
!define GUIDE "WrenDeck guide.html"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\WrenDeck"
!define CLASSES "Software\Classes"
!define SHORTCUT "$SMPROGRAMS\WrenDeck.lnk"

!define NO_HOST 2
!define NOT_WRITABLE 3
!define RUNNING 4

Name "WrenDeck ${VERSION}"
OutFile "${RESULT}"
BrandingText " "
RequestExecutionLevel user
ManifestDPIAware true
SetCompressor /SOLID lzma
AllowSkipFiles off
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Wren Deck"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Setup of Wren Deck"
VIAddVersionKey CompanyName "the WrenDeck developers"
VIAddVersionKey LegalCopyright ""

!define MUI_ICON "../app/win32/wrendeck.ico"
!define MUI_UNICON "../app/win32/wrendeck.ico"
!define MUI_WELCOMEPAGE_TEXT "This puts WrenDeck into the folder of Wren, where it works beside \
Wren.exe.$\r$\n$\r$\nSettings, files and help pages that you have changed stay as they are.\
$\r$\n$\r$\nClose WrenDeck before you go on."
!define MUI_DIRECTORYPAGE_TEXT_TOP "WrenDeck works only beside Wren. Choose the folder in which \
Wren.exe is."
!define MUI_DIRECTORYPAGE_TEXT_DESTINATION "Wren's folder"
!define MUI_DIRECTORYPAGE_VERIFYONLEAVE
!define MUI_COMPONENTSPAGE_NODESC
!define MUI_FINISHPAGE_RUN "$INSTDIR\WrenDeck.exe"
!define MUI_FINISHPAGE_RUN_NOTCHECKED
!define MUI_UNCONFIRMPAGE_TEXT_TOP "WrenDeck is taken out of this folder. Your files, the settings \
and help pages that you have changed stay."

!insertmacro MUI_PAGE_WELCOME
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE LeaveFolder
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

Var Problem ; why nothing can be done, for the user; empty when all is well
Var ProblemCode

; ---- Shared by installer and uninstaller.

!macro SharedFunctions un
  ; Pops two paths, pushes 1 when both are files with the same bytes.
  Function ${un}SameBytes
    Exch $0
    Exch
    Exch $1
    Push $2
    Push $3
    Push $4
    Push $5
    StrCpy $5 0
    ClearErrors
    FileOpen $2 $0 r
    FileOpen $3 $1 r
    ${IfNot} ${Errors}
      ${Do}
        ClearErrors
        FileReadByte $2 $0
        ${If} ${Errors}
          StrCpy $0 end
        ${EndIf}
        ClearErrors
        FileReadByte $3 $1
        ${If} ${Errors}
          StrCpy $1 end
        ${EndIf}
        ${If} $0 != $1
          ${Break}
        ${ElseIf} $0 == end
          StrCpy $5 1
          ${Break}
        ${EndIf}
      ${Loop}
    ${EndIf}
    FileClose $2
    FileClose $3
    StrCpy $0 $5
    Pop $5
    Pop $4
    Pop $3
    Pop $2
    Pop $1
    Exch $0
  FunctionEnd

  ; A program that runs cannot be opened for writing.
  Function ${un}LookWhetherItRuns
    ${If} ${FileExists} "$INSTDIR\WrenDeck.exe"
      ClearErrors
      FileOpen $0 "$INSTDIR\WrenDeck.exe" a
      ${If} ${Errors}
        StrCpy $ProblemCode ${RUNNING}
        StrCpy $Problem "WrenDeck is still running, or another program holds WrenDeck.exe. Close it \
and try again."
      ${Else}
        FileClose $0
      ${EndIf}
    ${EndIf}
  FunctionEnd
!macroend
!insertmacro SharedFunctions ""
!insertmacro SharedFunctions "un."

; ---- Where to.

Function .onInit
  ${If} $INSTDIR == ""
    ReadRegStr $INSTDIR HKCU "${UNINSTALL}" InstallLocation
    ${IfNot} ${FileExists} "$INSTDIR\Wren.exe"
      StrCpy $INSTDIR ""
      ${If} ${FileExists} "$EXEDIR\Wren.exe"
        StrCpy $INSTDIR $EXEDIR
      ${EndIf}
    ${EndIf}
  ${EndIf}
  Call ReadSwitches
  ${If} ${Silent}
    Call LookAtFolder
    ${If} $Problem != ""
      SetErrorLevel $ProblemCode
      Quit
    ${EndIf}
  ${EndIf}
FunctionEnd

; Fills $Problem and leaves the folder as it is.
Function LookAtFolder
  StrCpy $Problem ""
  ${If} $INSTDIR == ""
  ${OrIfNot} ${FileExists} "$INSTDIR\Wren.exe"
  ${OrIf} ${FileExists} "$INSTDIR\Wren.exe\*.*"
    StrCpy $ProblemCode ${NO_HOST}
    StrCpy $Problem "There is no Wren.exe in this folder. WrenDeck works only beside it: choose the \
folder that Wren is installed in."
    Return
  ${EndIf}
  ClearErrors
  FileOpen $0 "$INSTDIR\WrenDeck.setup.test" w
  ${If} ${Errors}
    StrCpy $ProblemCode ${NOT_WRITABLE}
    StrCpy $Problem "You may not write into this folder. Give yourself the right to do so, or move \
Wren to a folder of your own, for example C:\Games\Wren."
    Return
  ${EndIf}
  FileClose $0
  Delete "$INSTDIR\WrenDeck.setup.test"
  Call LookWhetherItRuns
FunctionEnd

Function LeaveFolder
  Call LookAtFolder
  ${If} $Problem != ""
    MessageBox MB_OK|MB_ICONEXCLAMATION $Problem
    Abort
  ${EndIf}
FunctionEnd

; ---- What is installed.

; A page that the user has changed stays: one that is not, byte for byte, what was installed last.
; What is known of earlier installations is a copy in the installer's own folder.
!macro InstallPage NAME
  StrCpy $0 1
  ${If} ${FileExists} "$INSTDIR\Info\${NAME}"
    Push "$INSTDIR\Info\${NAME}"
    Push "$INSTDIR\${OWN}\Info\${NAME}"
    Call SameBytes
    Pop $0
  ${EndIf}
  ${If} $0 = 1
    SetOutPath "$INSTDIR\Info"
    File "${CONTENTS}/Info/${NAME}"
  ${EndIf}
  SetOutPath "$INSTDIR\${OWN}\Info"
  File "${CONTENTS}/Info/${NAME}"
!macroend

!macro RemovePage NAME
  Push "$INSTDIR\Info\${NAME}"
  Push "$INSTDIR\${OWN}\Info\${NAME}"
  Call un.SameBytes
  Pop $0
  ${If} $0 = 1
    Delete "$INSTDIR\Info\${NAME}"
  ${EndIf}
  Delete "$INSTDIR\${OWN}\Info\${NAME}"
!macroend

; Makes a folder of the host's and remembers it, so that no other one is ever removed.
!macro MakeFolder NAME
  ${IfNot} ${FileExists} "$INSTDIR\${NAME}\*.*"
    CreateDirectory "$INSTDIR\${NAME}"
    WriteINIStr "$INSTDIR\${OWN}\setup.ini" Made "${NAME}" 1
  ${EndIf}
!macroend

!macro RemoveFolder NAME
  ReadINIStr $0 "$INSTDIR\${OWN}\setup.ini" Made "${NAME}"
  ${If} $0 == 1
    RMDir "$INSTDIR\${NAME}" ; stays unless it is empty
  ${EndIf}
!macroend

Section "WrenDeck"
  SectionIn RO
  ; Time has passed since the folder was looked at.
  Call LookAtFolder
  ${If} $Problem != ""
    SetErrorLevel $ProblemCode
    MessageBox MB_OK|MB_ICONEXCLAMATION $Problem /SD IDOK
    Quit
  ${EndIf}
  SetOutPath "$INSTDIR"
  File "${CONTENTS}/WrenDeck.exe"
  File "${CONTENTS}/${GUIDE}"
  CreateDirectory "$INSTDIR\${OWN}"
  !insertmacro MakeFolder Info
  !insertmacro MakeFolder Temp
  !insertmacro MakeFolder Files
  !insertmacro InstallPages
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\${OWN}\uninstall.exe"
  WriteRegStr HKCU "${UNINSTALL}" DisplayName "WrenDeck"
  WriteRegStr HKCU "${UNINSTALL}" DisplayVersion "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" DisplayIcon "$INSTDIR\WrenDeck.exe"
  WriteRegStr HKCU "${UNINSTALL}" Publisher "the WrenDeck developers"
  WriteRegStr HKCU "${UNINSTALL}" InstallLocation "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" UninstallString '"$INSTDIR\${OWN}\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL}" QuietUninstallString '"$INSTDIR\${OWN}\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL}" NoModify 1
  WriteRegDWORD HKCU "${UNINSTALL}" NoRepair 1
SectionEnd

Section "Entry in the start menu"
  SetOutPath "$INSTDIR"
  CreateShortcut "${SHORTCUT}" "$INSTDIR\WrenDeck.exe"
SectionEnd

; What a file type was opened with before is kept beside it, and comes back when WrenDeck goes.
!macro Associate EXTENSION DESCRIPTION
  WriteRegStr HKCU "${CLASSES}\WrenDeck${EXTENSION}" "" "${DESCRIPTION}"
  WriteRegStr HKCU "${CLASSES}\WrenDeck${EXTENSION}\DefaultIcon" "" "$INSTDIR\WrenDeck.exe,0"
  WriteRegStr HKCU "${CLASSES}\WrenDeck${EXTENSION}\shell\open\command" "" \
    '"$INSTDIR\WrenDeck.exe" "%1"'
  ReadRegStr $0 HKCU "${CLASSES}\${EXTENSION}" ""
  ${If} $0 != "WrenDeck${EXTENSION}"
    WriteRegStr HKCU "${CLASSES}\${EXTENSION}" "BeforeWrenDeck" "$0"
    WriteRegStr HKCU "${CLASSES}\${EXTENSION}" "" "WrenDeck${EXTENSION}"
  ${EndIf}
!macroend

; Only what is still WrenDeck's, and this folder's.
!macro Dissociate EXTENSION
  ReadRegStr $0 HKCU "${CLASSES}\WrenDeck${EXTENSION}\shell\open\command" ""
  ${If} $0 == '"$INSTDIR\WrenDeck.exe" "%1"'
    ReadRegStr $0 HKCU "${CLASSES}\${EXTENSION}" ""
    ${If} $0 == "WrenDeck${EXTENSION}"
      ReadRegStr $0 HKCU "${CLASSES}\${EXTENSION}" "BeforeWrenDeck"
      ${If} $0 == ""
        DeleteRegValue HKCU "${CLASSES}\${EXTENSION}" ""
      ${Else}
        WriteRegStr HKCU "${CLASSES}\${EXTENSION}" "" "$0"
      ${EndIf}
    ${EndIf}
    DeleteRegValue HKCU "${CLASSES}\${EXTENSION}" "BeforeWrenDeck"
    DeleteRegKey /ifempty HKCU "${CLASSES}\${EXTENSION}"
    DeleteRegKey HKCU "${CLASSES}\WrenDeck${EXTENSION}"
  ${EndIf}
!macroend

!macro TellExplorer
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Section /o "Open .tmj and .tmm files with WrenDeck" SectionAssociate
  !insertmacro Associate .tmj "Cougar joystick file"
  !insertmacro Associate .tmm "Cougar macro file"
  !insertmacro TellExplorer
SectionEnd

Function ReadSwitches
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/ASSOCIATE" $1
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${SectionAssociate}
  ${EndIf}
FunctionEnd

; ---- Out again.

Function un.onInit
  ; It lies one folder below the host's.
  ${GetParent} $INSTDIR $INSTDIR
  ${Do}
    StrCpy $Problem ""
    Call un.LookWhetherItRuns
    ${If} $Problem == ""
      ${Break}
    ${EndIf}
    SetErrorLevel $ProblemCode
    ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION $Problem /SD IDCANCEL IDCANCEL`
      Quit
    ${EndIf}
  ${Loop}
  SetErrorLevel 0
FunctionEnd

Section Uninstall
  Delete "$INSTDIR\WrenDeck.exe"
  Delete "$INSTDIR\${GUIDE}"
  !insertmacro RemovePages
  !insertmacro RemoveFolder Info
  !insertmacro RemoveFolder Temp
  !insertmacro RemoveFolder Files
  RMDir "$INSTDIR\Recovery" ; WrenDeck's own; stays while unsaved texts are in it
  Delete "$INSTDIR\${OWN}\setup.ini"
  Delete "$INSTDIR\${OWN}\uninstall.exe"
  RMDir "$INSTDIR\${OWN}\Info"
  RMDir "$INSTDIR\${OWN}"
  !insertmacro Dissociate .tmj
  !insertmacro Dissociate .tmm
  !insertmacro TellExplorer
  ReadRegStr $0 HKCU "${UNINSTALL}" InstallLocation
  ${If} $0 == $INSTDIR
    Delete "${SHORTCUT}"
    DeleteRegKey HKCU "${UNINSTALL}"
  ${EndIf}
SectionEnd
