' cscript //nologo today.vbs FOLDER: the list of today's events of the data folder.
Option Explicit
Dim kaz
Set kaz = WScript.CreateObject("Kazlib.clsComponent", "kaz_")
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
