; The installer, for one user and without administrator rights. tools/package hands over FILES (the folder of what is installed),
; OUTPUT, VERSION, ICON, and PICTURE for the last page.
;
; /S            asks nothing. The result is 0, or 2 when nothing was done because KAZ could not be ended.
; /STARTUP=NO   KAZ does not start with Windows; /STARTUP=YES: it does. Otherwise as it was before, and at first it does.
; /D=FOLDER     the last argument, without quotation marks: the folder of the program.

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
ManifestSupportedOS all

!include FileFunc.nsh
!include LogicLib.nsh
!include MUI2.nsh
!include Sections.nsh
!include WinMessages.nsh

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\KAZ"
!define RUN "Software\Microsoft\Windows\CurrentVersion\Run"

Name "KAZ"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\KAZ"
InstallDirRegKey HKCU "${UNINSTALL}" "InstallLocation"
BrandingText "KAZ ${VERSION}"
AllowSkipFiles off
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "KAZ"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "KAZ Setup"
VIAddVersionKey "LegalCopyright" "The KAZ authors"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURE}"
!define MUI_COMPONENTSPAGE_SMALLDESC
!define MUI_FINISHPAGE_RUN "$INSTDIR\KAZ2.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Start KAZ"
!insertmacro MUI_PAGE_COMPONENTS
!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipWhenInstalled
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_PAGE_CUSTOMFUNCTION_SHOW HideStart
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

!include Running.nsh
!insertmacro RunningPrograms ""
!insertmacro RunningPrograms "un."

Section "KAZ" SectionProgram
    SectionIn RO
    Call EndRunning

    SetOutPath "$INSTDIR"
    File "${FILES}\KAZ2.exe"
    File "${FILES}\Kazlib.dll"
    File "${FILES}\KAZ.html"
    File "${FILES}\LICENSE.txt"
    File "${FILES}\THIRD-PARTY.txt"
    ; In the folder of a program that keeps its data beside itself, the sound may be the user's own.
    SetOverwrite off
    File "${FILES}\alarm.wav"
    SetOverwrite on
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortcut "$SMPROGRAMS\KAZ.lnk" "$INSTDIR\KAZ2.exe"
    DeleteRegValue HKCU "${RUN}" "KAZ"

    WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "KAZ"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\KAZ2.exe"
    WriteRegStr HKCU "${UNINSTALL}" "Publisher" "The KAZ authors"
    WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
    SectionGetSize ${SectionProgram} $0
    WriteRegDWORD HKCU "${UNINSTALL}" "EstimatedSize" $0

    ExecWait '"$SYSDIR\regsvr32.exe" /s /n /i:user "$INSTDIR\Kazlib.dll"' $0
    ${If} $0 <> 0
        MessageBox MB_OK|MB_ICONEXCLAMATION "KAZ is installed and works, but scripts and other programs cannot use it: Windows \
            refused to register it ($0)." /SD IDOK
    ${EndIf}
SectionEnd

Section "Start with Windows" SectionStartup
    WriteRegStr HKCU "${RUN}" "KAZ" '"$INSTDIR\KAZ2.exe"'
SectionEnd

Section -Restart
    Call StartEnded
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionProgram} "The program, with an entry in the start menu."
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionStartup} "So that no reminder is missed."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Function .onInit
    ReadRegStr $0 HKCU "${UNINSTALL}" "InstallLocation"
    ReadRegStr $1 HKCU "${RUN}" "KAZ"
    ${If} $0 != ""
    ${AndIf} $1 == ""
        !insertmacro UnselectSection ${SectionStartup}
    ${EndIf}
    ${GetParameters} $0
    ${GetOptions} "$0" "/STARTUP=" $1
    ${If} $1 == "NO"
        !insertmacro UnselectSection ${SectionStartup}
    ${ElseIf} $1 == "YES"
        !insertmacro SelectSection ${SectionStartup}
    ${EndIf}
FunctionEnd

; An upgrade stays where the program is.
Function SkipWhenInstalled
    ReadRegStr $0 HKCU "${UNINSTALL}" "InstallLocation"
    ${If} $0 != ""
        Abort
    ${EndIf}
FunctionEnd

; After an upgrade what ran before runs again, and needs no second start.
Function HideStart
    ${If} $Ended > 0
        SendMessage $mui.FinishPage.Run ${BM_SETCHECK} ${BST_UNCHECKED} 0
        ShowWindow $mui.FinishPage.Run ${SW_HIDE}
    ${EndIf}
FunctionEnd

; Only what the installer has made, each by its name: whatever else is in the folder is the user's.
Section "Uninstall"
    Call un.EndRunning

    ExecWait '"$SYSDIR\regsvr32.exe" /s /u /n /i:user "$INSTDIR\Kazlib.dll"'
    Delete "$SMPROGRAMS\KAZ.lnk"
    DeleteRegValue HKCU "${RUN}" "KAZ"
    Delete "$INSTDIR\KAZ2.exe"
    Delete "$INSTDIR\Kazlib.dll"
    Delete "$INSTDIR\KAZ.html"
    Delete "$INSTDIR\LICENSE.txt"
    Delete "$INSTDIR\THIRD-PARTY.txt"
    Delete "$INSTDIR\uninstall.exe"
    ${IfNot} ${FileExists} "$INSTDIR\Kaz.ini"
        Delete "$INSTDIR\alarm.wav"
        Delete "$INSTDIR\Log_KAZ.txt" ; of a start that failed before it had a data folder
    ${EndIf}
    RMDir "$INSTDIR"
    DeleteRegKey HKCU "${UNINSTALL}"
SectionEnd
