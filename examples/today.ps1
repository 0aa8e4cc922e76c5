# powershell -ExecutionPolicy Bypass -File today.ps1 FOLDER: the list of today's events of the data folder.
param([Parameter(Mandatory)][string] $Folder)
$kaz = New-Object -ComObject Kazlib.clsComponent
$onEvents = [Action[object]] { param($events) foreach ($line in $events) { Write-Host $line } }
$onMail = [Action[string, string, string]] { param($address, $subject, $text) Write-Host "Mail to ${address}: $text" }
# The interface of the component's events, and the numbers of two of them.
$interface = [guid] '4D576ACC-9D18-4EED-8C1F-C0453CDEEBAF'
[Runtime.InteropServices.ComEventsHelper]::Combine($kaz, $interface, 2, $onEvents)
[Runtime.InteropServices.ComEventsHelper]::Combine($kaz, $interface, 4, $onMail)
$kaz.Startup($Folder)
$kaz.ScanEvents()
$kaz.ShutDown()
