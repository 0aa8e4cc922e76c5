' Drives the component as an automation client does: by its registered name and by late binding.
' The script host hides errors and ends with 0 all the same, so only the last line, OK, counts.
Option Explicit
Dim kaz, files, folder

Sub Check(condition, what)
    If Not condition Then
        WScript.Echo "failed: " & what
        WScript.Quit 1
    End If
End Sub

Set files = CreateObject("Scripting.FileSystemObject")
folder = files.BuildPath(files.GetSpecialFolder(2), files.GetTempName())
files.CreateFolder folder

Set kaz = CreateObject("Kazlib.clsComponent")
Check Not kaz.SettingsInitialised, "nothing is initialised before Startup"
Check UBound(Split(kaz.DLLVersion, ".")) = 2, "a version of three numbers, not " & kaz.DLLVersion
kaz.ScanEvents

kaz.Startup folder
Check kaz.SettingsInitialised, "Startup on " & folder
Check files.FileExists(files.BuildPath(folder, "Log_KAZ.txt")), "the log is in the folder"
kaz.RefreshDates
kaz.ScanEvents
kaz.HideMain
kaz.ShutDown
Check files.FileExists(files.BuildPath(folder, "Kaz.ini")), "the settings are saved"

Set kaz = Nothing
files.DeleteFolder folder, True
WScript.Echo "OK"
