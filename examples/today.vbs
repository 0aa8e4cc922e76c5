' cscript //nologo today.vbs FOLDER: the list of today's events of the data folder.
Option Explicit
Dim kaz
' A script host that connects no events, or finds no component, may say nothing of it by itself.
On Error Resume Next
Set kaz = WScript.CreateObject("Kazlib.clsComponent", "kaz_")
If Err.Number <> 0 Then
    WScript.Echo "KAZ cannot be connected here: " & Err.Description & " (" & Err.Number & ")"
    WScript.Quit 1
End If
On Error GoTo 0
kaz.Startup WScript.Arguments(0)
kaz.ScanEvents
kaz.ShutDown

Sub kaz_TodaysEvents(events)
    Dim line
    For Each line In events
        WScript.Echo line
    Next
End Sub

Sub kaz_MailEvent(address, subject, text)
    WScript.Echo "Mail to " & address & ": " & text
End Sub
