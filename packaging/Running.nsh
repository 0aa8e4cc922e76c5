; Programs that run from $INSTDIR must end before their files are replaced or deleted. They are asked, as by the "Quit" of the tray
; menu, so that they save; while one of their dialogs waits for its user, they refuse. None is ever killed.

Var Ended ; how many have ended; of each, the command line and below it the working folder are on the stack

; Where they stand in the memory of a process of 64 bits: from the start of its block to the parameters, and in these.
!define PARAMETERS 0x20
!define WORKING_FOLDER 0x38
!define COMMAND_LINE 0x70

!macro RunningPrograms un

; Returns when none runs and no file is in use any more; otherwise starts again what it has ended, and aborts.
Function ${un}EndRunning
    StrCpy $Ended 0
    ${Do}
        Call ${un}AskToEnd
        ${If} $0 == ""
            Call ${un}IsInUse
        ${EndIf}
        ${If} $0 == ""
            Return
        ${EndIf}
        ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$0 is in use.$\n$\nIf one of KAZ's windows waits for \
            your answer, close that window. If another program works with KAZ, end it. Then try again." /SD IDCANCEL IDCANCEL`
            Call ${un}StartEnded
            SetErrorLevel 2
            Abort
        ${EndIf}
    ${Loop}
FunctionEnd

; Asks each program that runs from the folder to end, and waits for it, some seconds at most. $0: "KAZ" when one still runs, else "".
Function ${un}AskToEnd
    StrCpy $9 ""
    StrCpy $0 0
    ${Do}
        FindWindow $0 "KAZ2Host" "" 0 $0
        ${If} $0 P= 0
            StrCpy $0 $9
            Return
        ${EndIf}
        System::Call 'user32::GetWindowThreadProcessId(p r0, *i .r1)'
        System::Call 'kernel32::OpenProcess(i 0x100410, i 0, i r1) p .r2' ; to wait for it, ask about it, read in it
        System::Call 'kernel32::QueryFullProcessImageNameW(p r2, i 0, w .r3, *i ${NSIS_MAX_STRLEN})'
        ${If} $3 == "$INSTDIR\KAZ2.exe"
            StrCpy $6 ${WORKING_FOLDER}
            Call ${un}StartedWith
            StrCpy $R0 $5
            StrCpy $6 ${COMMAND_LINE}
            Call ${un}StartedWith
            DetailPrint "KAZ is asked to end"
            System::Call 'user32::PostMessageW(p r0, i ${WM_CLOSE}, p 0, p 0)'
            System::Call 'kernel32::WaitForSingleObject(p r2, i 10000) i .r4'
            ${If} $4 = 0
                Push $R0
                Push $5
                IntOp $Ended $Ended + 1
                StrCpy $0 0 ; the window that the search would go on from is gone
            ${Else}
                StrCpy $9 "KAZ"
            ${EndIf}
        ${EndIf}
        System::Call 'kernel32::CloseHandle(p r2)'
    ${Loop}
FunctionEnd

; $5: the text that stands at $6 in what the process $2 was started with, "" when that cannot be told. The system has no function
; for it that every Windows knows, so it is read where the process itself finds it.
Function ${un}StartedWith
    StrCpy $5 ""
    System::Alloc 65536 ; the most that such a text can have
    Pop $7
    System::Call 'ntdll::NtQueryInformationProcess(p r2, i 0, p r7, i 48, p 0)' ; ProcessBasicInformation
    System::Call '*$7(p, p .r8)'
    IntPtrOp $8 $8 + ${PARAMETERS}
    System::Call 'kernel32::ReadProcessMemory(p r2, p r8, p r7, p 8, p 0)'
    System::Call '*$7(p .r8)'
    IntPtrOp $8 $8 + $6
    System::Call 'kernel32::ReadProcessMemory(p r2, p r8, p r7, p 16, p 0)'
    System::Call '*$7(&i2 .r6, &i2, &i4, p .r8)'
    IntOp $6 $6 & 0xffff
    System::Call 'kernel32::ReadProcessMemory(p r2, p r8, p r7, p r6, p 0) i .r8'
    IntOp $6 $6 / 2
    IntOp $6 $6 + 1
    ${If} $8 <> 0
    ${AndIf} $6 <= ${NSIS_MAX_STRLEN}
        System::Call 'kernel32::lstrcpynW(w .r5, p r7, i r6)'
    ${EndIf}
    System::Free $7
FunctionEnd

; $0: the name of a file of the program that somebody still has open, "" when there is none after some seconds: a program that has
; just ended, or a virus scanner, may hold it for a moment.
Function ${un}IsInUse
    ${ForEach} $1 1 20 + 1
        StrCpy $0 ""
        StrCpy $2 "KAZ2.exe"
        Call ${un}IsOpen
        StrCpy $2 "Kazlib.dll"
        Call ${un}IsOpen
        ${If} $0 == ""
            Return
        ${EndIf}
        Sleep 250
    ${Next}
FunctionEnd

Function ${un}IsOpen
    ${If} ${FileExists} "$INSTDIR\$2"
        ClearErrors
        FileOpen $3 "$INSTDIR\$2" a
        ${If} ${Errors}
            StrCpy $0 $2
        ${Else}
            FileClose $3
        ${EndIf}
    ${EndIf}
FunctionEnd

Function ${un}StartEnded
    ${While} $Ended > 0
        Pop $0
        Pop $1
        SetOutPath $1
        ${If} $0 == ""
            StrCpy $0 '"$INSTDIR\KAZ2.exe"'
        ${EndIf}
        Exec $0
        IntOp $Ended $Ended - 1
    ${EndWhile}
FunctionEnd

!macroend
