; The installer: for the current user, without an administrator. script/release gives VERSION (x.y.z), INPUT (a folder
; with the files of the portable zip) and OUTPUT (the installer's path).
;
; Silently: SETUP.exe /S [/FILETYPE] [/DESKTOP] [/D=folder], the last one unquoted. Exit code 2: the program is running.

Target amd64-unicode
Unicode true
ManifestDPIAware true
SetCompressor /SOLID lzma
SetDateSave off
RequestExecutionLevel user

!include "MUI2.nsh"
!include "FileFunc.nsh"
!include "LogicLib.nsh"
!include "Sections.nsh"

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Vaultmere"
!define SETTINGS "Software\Tolvane\Vaultmere"

Name "Vaultmere"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Vaultmere"
InstallDirRegKey HKCU "${UNINSTALL}" "InstallLocation"
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Vaultmere"
VIAddVersionKey "CompanyName" "Tolvane"
VIAddVersionKey "FileDescription" "Vaultmere set-up"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "Tolvane"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\vaultmere.exe"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; While a window of the program is open its file cannot be replaced, and what it has unsaved would be lost.
!macro RefuseWhileRunning
    System::Call 'kernel32::OpenMutexW(i 0x100000, i 0, w "Vaultmere_Mutex") p .r0'
    ${If} $0 P<> 0
        System::Call 'kernel32::CloseHandle(p r0)'
        MessageBox MB_ICONEXCLAMATION "Vaultmere is running. Close its windows first, then try again." /SD IDOK
        SetErrorLevel 2
        Quit
    ${EndIf}
!macroend

Section "Vaultmere" PROGRAM
    SectionIn RO
    SetOutPath "$INSTDIR"
    File "${INPUT}/vaultmere.exe"
    File "${INPUT}/vmr.exe"
    File "${INPUT}/README.txt"
    SetOutPath "$INSTDIR\Lang"
    File "${INPUT}/Lang/*.ini"
    SetOutPath "$INSTDIR\Theme"
    File "${INPUT}/Theme/*.ini"
    SetOutPath "$INSTDIR\licences"
    File "${INPUT}/licences/*.txt"
    SetOutPath "$INSTDIR"
    CreateShortcut "$SMPROGRAMS\Vaultmere.lnk" "$INSTDIR\vaultmere.exe"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Vaultmere"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\vaultmere.exe"
    WriteRegStr HKCU "${UNINSTALL}" "Publisher" "Tolvane"
    WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD HKCU "${UNINSTALL}" "EstimatedSize" $0
SectionEnd

Section /o "Open .VMR files with Vaultmere" FILE_TYPE
    ExecWait '"$INSTDIR\vaultmere.exe" /shelladd'
SectionEnd

Section /o "Link on the desktop" DESKTOP
    CreateShortcut "$DESKTOP\Vaultmere.lnk" "$INSTDIR\vaultmere.exe"
SectionEnd

LangString WHAT_PROGRAM ${LANG_ENGLISH} "The program, its console companion, languages and themes."
LangString WHAT_FILE_TYPE ${LANG_ENGLISH} "A double click on a database opens it."
LangString WHAT_DESKTOP ${LANG_ENGLISH} "A link to the program on the desktop."
!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${PROGRAM} $(WHAT_PROGRAM)
    !insertmacro MUI_DESCRIPTION_TEXT ${FILE_TYPE} $(WHAT_FILE_TYPE)
    !insertmacro MUI_DESCRIPTION_TEXT ${DESKTOP} $(WHAT_DESKTOP)
!insertmacro MUI_FUNCTION_DESCRIPTION_END

!macro SelectBySwitch SWITCH SECTION
    ClearErrors
    ${GetOptions} $R0 "${SWITCH}" $R1
    ${IfNot} ${Errors}
        !insertmacro SelectSection ${SECTION}
    ${EndIf}
!macroend

Function .onInit
    !insertmacro RefuseWhileRunning
    ${GetParameters} $R0
    !insertmacro SelectBySwitch "/FILETYPE" ${FILE_TYPE}
    !insertmacro SelectBySwitch "/DESKTOP" ${DESKTOP}
FunctionEnd

Function un.onInit
    !insertmacro RefuseWhileRunning
FunctionEnd

; What the installer brought goes; what the user put into the folders stays, and the folders with it.
Section "Uninstall"
    ; The file type may by now be bound to a copy of the program elsewhere, which keeps it.
    ReadRegStr $0 HKCU "Software\Classes\Tolvane.Vaultmere\shell\open\command" ""
    ${If} $0 == "$INSTDIR\vaultmere.exe %1"
        ExecWait '"$INSTDIR\vaultmere.exe" /shellremove'
    ${EndIf}
    Delete "$INSTDIR\vaultmere.exe"
    Delete "$INSTDIR\vmr.exe"
    Delete "$INSTDIR\README.txt"
    !include "${INPUT}.delete.nsh"
    RMDir "$INSTDIR\Lang"
    RMDir "$INSTDIR\Theme"
    RMDir "$INSTDIR\licences"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\Vaultmere.lnk"
    Delete "$DESKTOP\Vaultmere.lnk"
    DeleteRegKey HKCU "${UNINSTALL}"
    DeleteRegKey HKCU "${SETTINGS}"
    DeleteRegKey /ifempty HKCU "Software\Tolvane"
SectionEnd
