#pragma once

// Ids of windows, controls, timers and commands, shared by the resource script and the portable forms.
// Plain defines, since the resource compiler reads them too.

// Windows
#define IDD_REMINDER 101
#define IDD_MAIN 102
#define IDD_INPUTBOX 103
#define IDD_DATE 104
#define IDD_EVENT 105
#define IDD_OPTIONS 106
#define IDD_LAYERS 107
#define IDD_ERRORREPORT 108
#define IDD_ABOUT 109
#define IDD_MONTH 110
#define IDD_TASKS 111
#define IDD_DAYEVENTS 112
#define IDD_RUNFILE 114
#define IDD_UNSAVED 115
#define IDD_MISSED 116
#define IDD_SLEEPING 117
#define IDD_MORE 118
#define IDD_WORDS 119
#define IDD_RESTORE 120
#define IDD_FORECAST 130
#define IDD_TESTREMINDERS 131

// frmReminder
#define IDC_lblHeading 1001
#define IDC_lstReminders 1002
#define IDC_txtSleep 1003
#define IDC_cmdRemindMe 1004
#define IDC_lblMinutes 1005
#define IDC_cmdContinue 1006
#define IDT_Timer1 1007
#define IDC_cmdLineDone 1008
#define IDC_cmdLineAgain 1009
#define IDC_cmdLineLast 1010

// frmRunFile
#define IDC_lblSource 1051
#define IDC_lblEvent 1052
#define IDC_txtFile 1053
#define IDC_cmdYes 1054
#define IDC_cmdNo 1055
#define IDC_lblRunFile 1056

// frmMissed
#define IDC_lblMissed 1061
#define IDC_lstMissed 1062
#define IDC_cmdMissedDone 1063
#define IDC_cmdMissedToday 1064
#define IDC_cmdMissedAgain 1065
#define IDC_cmdMissedEdit 1066
#define IDC_cmdMissedRun 1067
#define IDC_cmdMissedMail 1068
#define IDC_cmdMissedAll 1069
#define IDC_cmdMissedLater 1070

// frmSleeping
#define IDC_lstSleeping 1081
#define IDC_cmdSleepingWake 1082
#define IDC_cmdSleepingDone 1083
#define IDC_cmdSleepingEdit 1084
#define IDC_cmdSleepingClose 1085

// frmMain
#define IDC_ListEvents 1101
#define IDC_chkExpired 1102
#define IDC_lblShow 1103
#define IDC_cmbCategories 1104
#define IDC_fraFilter 1105
#define IDT_TimerRefresh 1106
#define IDC_Toolbar1 1107
#define IDT_TimerAlarms 1108
#define IDC_lblHealth 1110
#define IDC_cmdHealth 1111  // the first of 3
#define IDC_lblHealthCount 1114
#define IDC_cmdHealthNext 1115
#define IDC_lblSearch 1116
#define IDC_txtSearch 1117
#define IDC_lblEvents 1130

// The line in words, in the main window and in one of its own
#define IDC_lblWords 1131
#define IDC_txtWords 1132
#define IDC_lblUnderstood 1133
#define IDC_cmdAddWords 1134
#define IDC_cmdCloseWords 1135

// Commands of menus and accelerators
#define IDM_FIND 2001
#define IDM_FINDNEXT 2002
#define IDM_EDIT 2003
#define IDM_DELETE 2004
#define IDM_REFRESH 2005
#define IDM_EXIT 2006
#define IDM_ADD 2007
#define IDM_PUSH 2008
#define IDM_TASKLIST 2009
#define IDM_MONTHVIEW 2010
#define IDM_EDITLAYERS 2011
#define IDM_OPTIONS 2012
#define IDM_LOG 2013
#define IDM_HELPMENU 2014
#define IDM_SELECTALL 2015
#define IDM_SHAREWITH 2016
#define IDM_SHOW 2017
#define IDM_QUIT 2018  // never another number: the installer of a later version sends it to a running program
#define IDM_SETTINGS 2019
#define IDM_BACKUP 2020
#define IDM_VIEWBACKUPS 2021
#define IDM_CHECKFORUPDATE 2022
#define IDM_HELP 2023
#define IDM_ABOUT 2024
#define IDM_SKIP 2025
#define IDM_MOVEDAY 2026
#define IDM_WORDS 2027
#define IDM_NEWINWORDS 2028
#define IDM_SEARCH 2029
#define IDM_UNDO 2030
#define IDM_REDO 2031
#define IDM_CHANGES 2032
#define IDM_RESTORE 2033
#define IDM_COPY 2310

#define IDM_REMINDERSMENU 2040
#define IDM_SHOWAGAIN 2041
#define IDM_QUIET 2042
#define IDM_SHOWMISSED 2045
#define IDM_SLEEPING 2046

#define IDM_AGAIN_5 2050
#define IDM_AGAIN_10 2051
#define IDM_AGAIN_30 2052
#define IDM_AGAIN_60 2053
#define IDM_AGAIN_START 2054
#define IDM_AGAIN_TOMORROW 2055
#define IDM_AGAIN_AT 2056
#define IDM_FORECAST 2043
#define IDM_TESTREMINDERS 2044

#define IDM_COLUMNS 2069
#define IDM_COLUMN 2070  // the first of eleven
#define IDM_COLUMNSRESET 2085

#define IDR_MENU_LIST 201
#define IDR_MENU_TRAY 202
#define IDR_MENU_SETTINGS 203
#define IDR_MENU_HELP 204
#define IDR_MENU_REMINDERS 205
#define IDR_MENU_AGAIN 206
#define IDR_MENU_COLUMNS 207
#define IDI_KAZ 301
#define IDI_KAZWARNING 302
#define IDI_KAZUNSAVED 303
#define IDI_KAZAWAY 304
#define IDI_KAZMISSED 305
#define IDI_KAZQUIET 306
#define IDI_KAZSILENT 307

// The input box
#define IDC_lblPrompt 1201
#define IDC_txtAnswer 1202

// The date box
#define IDC_lblDatePrompt 1301
#define IDC_calDate 1302

// frmEvent: every control is in this range
#define IDC_frmEventFirst 1399
#define IDC_frmEventLast 1499
#define IDC_lblDesc 1400
#define IDC_txtDesc 1401
#define IDC_lblLayer 1402
#define IDC_cmbLayers 1403
#define IDC_lblDaysWarning 1404
#define IDC_txtDaysWarning 1405
#define IDC_chkTimed 1406
#define IDC_lblTime 1407
#define IDC_txtTime 1408
#define IDC_lblMinutesWarning 1409
#define IDC_txtMinutesWarning 1410
#define IDC_lblMinutesUnit 1411
#define IDC_lblAlarmAdvice 1412
#define IDC_chkMakeNoise 1413
#define IDC_lblWavFile 1414
#define IDC_cmdPickWav 1415
#define IDC_chkRunFile 1416
#define IDC_lblExecFile 1417
#define IDC_cmdPickFile 1418
#define IDC_chkFrequency 1419
#define IDC_txtFrequency 1420
#define IDC_lblFrequencyMinutes 1421
#define IDC_optRepeat 1422
#define IDC_optShowOnce 1423
#define IDC_chkEmailTo 1424
#define IDC_txtEmailAlert 1425
#define IDC_FrameShared 1426
#define IDC_chkShared 1427
#define IDC_chkSpecificShare 1428
#define IDC_lblUsers 1429
#define IDC_lstUsers 1430
#define IDC_TabStrip1 1431  // the first of 8: its tabs have tooltips
#define IDC_cmdMore 1439
#define IDC_lblMore 1399
#define IDC_lblPreview 1496
#define IDC_lblPreviewWarning 1497
#define IDC_cmdSave 1498
#define IDC_cmdAbort 1499
// The frame of tab n, counted from 0, is the controls from IDC_fraEvent + 8 * n on, at most eight.
#define IDC_fraEvent 1440
#define FRAME_CONTROLS 8
#define IDC_chkDay 1440  // the first of 7, Monday
#define IDC_lblWeekdaysHelp 1447
#define IDC_lblDayOfMonth 1448
#define IDC_txtDayOfMonth 1449
#define IDC_lblMonthNames 1450
#define IDC_lstMonthNames 1451
#define IDC_lblMonthlyHelp 1452
#define IDC_lblMonthlyEvery 1456
#define IDC_txtMonthlyPeriod 1457
#define IDC_lblMonthlyFrom 1458
#define IDC_lblMonthlyStartDate 1459
#define IDC_lblMonthsHelp 1460
#define IDC_lblWeeklyEvery 1464
#define IDC_txtWeeklyPeriod 1465
#define IDC_lblWeeklyFrom 1466
#define IDC_lblWeeklyStartDate 1467
#define IDC_lblWeeksHelp 1468
#define IDC_lstDayNumber 1472
#define IDC_lstDayName 1473
#define IDC_lstMonths 1474
#define IDC_lblDayXHelp 1475
#define IDC_lblDayNumber 1476
#define IDC_lblDayName 1477
#define IDC_lblMonths 1478
#define IDC_lblDailyEvery 1480
#define IDC_txtDailyPeriod 1481
#define IDC_lblDailyFrom 1482
#define IDC_lblDailyStartDate 1483
#define IDC_lblDaysHelp 1484
#define IDC_lblOnceDate 1488
#define IDC_txtOnceDate 1489
#define IDC_cmdOnceDate 1490
#define IDC_lblOnceHelp 1491
// Its keys
#define IDM_NEXTPAGE 2301
#define IDM_PREVIOUSPAGE 2302
#define IDM_PAGE 2303  // the first of 7

// frmMore; a control of warning n, counted from 0, is that of the first one + n
#define IDC_optNoEnd 2101
#define IDC_optLastDay 2102
#define IDC_cmdLastDay 2103
#define IDC_lblLastDay 2104
#define IDC_optTimes 2105
#define IDC_txtTimes 2106
#define IDC_lblTimes 2107
#define IDC_lstSkipped 2108
#define IDC_cmdPutBack 2109
#define IDC_cmdPutAllBack 2110
#define IDC_txtWarningNumber 2111  // the first of 3
#define IDC_cmbWarningKind 2114    // the first of 3
#define IDC_txtWarningTime 2117    // the first of 3
#define IDC_chkAlways 2120
#define IDC_cmdMoreOK 2121
#define IDC_cmdMoreCancel 2122

// frmMonthView
#define IDC_Calbox 1800
#define IDC_lblDate 1801
#define IDC_cmd_prevyear 1802
#define IDC_cmd_prevmonth 1803
#define IDC_cmd_nextmonth 1804
#define IDC_cmd_nextyear 1805
#define IDC_cmdNow 1806
#define IDC_lblMonthLayers 1807
#define IDC_cmbMonthLayers 1808
#define IDC_cmdViewEvents 1809
#define IDC_cmd_print 1810
#define IDC_cmdPrintCal 1811
#define IDC_cmd_exit 1812
#define IDT_TimerToday 1813

// frmDayEvents
#define IDC_lstDayEvents 1850
#define IDC_cmdCloseDay 1851
#define IDC_cmdSkipDay 1852
#define IDC_cmdMoveDay 1853
#define IDC_cmdAddDay 1854
#define IDC_cmdEditDay 1855
#define IDC_lblNoEvents 1856

// frmOptions
#define IDC_txtDatapath 1500
#define IDC_cmdDatapath 1501
#define IDC_txtAlarmWav 1502
#define IDC_cmdPickAlarmWav 1503
#define IDC_chkNoSound 1504
#define IDC_optUSDate 1505
#define IDC_optEuroDate 1506
#define IDC_chkSilentStart 1507
#define IDC_chkDisableAutoUpdate 1508
#define IDC_chkNoAutoBackups 1509
#define IDC_chkPruneBackups 1510
#define IDC_optSingle 1511
#define IDC_optNetworked 1512
#define IDC_txtSharedDBPath 1513
#define IDC_cmdSharedDBPath 1514
#define IDC_txtOwner 1515
#define IDC_lstSharedUsers 1516
#define IDC_cmdAddUser 1517
#define IDC_cmdDel 1518
#define IDC_cmdReload 1519
#define IDC_cmdHomePage 1520
#define IDC_cmdSaveOptions 1521
#define IDC_cmdAbortOptions 1522
#define IDC_txtSecondBackup 1523
#define IDC_cmdSecondBackup 1524
#define IDC_chkQuietScreen 1525
#define IDC_txtQuietFrom 1526
#define IDC_txtQuietTo 1527
#define IDC_cmbWordsKey 1528
#define IDC_chkStartAtLogon 1529

// frmEditLayers: the text box of slot n is IDC_txtLayer + n
#define IDC_txtLayer 1600  // the first of 21
#define IDC_cmdSuggest 1625
#define IDC_cmdAccept 1630
#define IDC_cmdAbortLayers 1631

// fSHAREDErrorRpt
#define IDC_txtError 1700
#define IDC_lblUserMessage 1701
#define IDC_txtUserMessage 1702
#define IDC_lblLog 1703
#define IDC_txtLog 1704
#define IDC_cmdSubmit 1705
#define IDC_cmdSaveAsText 1706
#define IDC_cmdCloseReport 1707

// frmAbout
#define IDC_lblProduct 1750
#define IDC_lblVersion 1751
#define IDC_cmdAboutHomePage 1752
#define IDC_cmdCloseAbout 1753

// frmTasks
#define IDC_lblTasks 1900
#define IDC_lst_tasks 1901
#define IDC_cmd_add 1902
#define IDC_cmd_change 1903
#define IDC_cmd_delete 1904
#define IDC_cmd_printTasks 1905
#define IDC_Cmd_exit 1906
#define IDC_cmd_undoTask 1907
#define IDC_cmd_redoTask 1908

// frmForecast
#define IDC_lblForecast 1980
#define IDC_lstForecast 1981
#define IDC_cmdForecastDay 1982
#define IDC_cmdForecastToday 1983
#define IDC_cmdForecastPrint 1984
#define IDC_cmdForecastClose 1985

// frmTestReminders
#define IDC_lblTestResult 1990
#define IDC_txtTestFindings 1991
#define IDC_cmdTestAgain 1992
#define IDC_cmdCloseTest 1993

// frmUnsaved
#define IDC_lblUnsaved 1950
#define IDC_cmdUnsavedTryAgain 1951
#define IDC_cmdUnsavedCopy 1952
#define IDC_cmdUnsavedLose 1953
#define IDC_cmdUnsavedCancel 1954

// frmRestore
#define IDC_lblBackups 2151
#define IDC_lstBackups 2152
#define IDC_lblBackup 2153
#define IDC_lblBackupEvents 2154
#define IDC_lstBackupEvents 2155
#define IDC_cmdRestore 2156
#define IDC_cmdRestoreAll 2157
#define IDC_cmdCloseRestore 2158

// Texts: the title of message boxes; the tooltip of a control is the string IDS_TOOLTIP + the control's id;
// that of a tab follows its strip's: + 1 for the first tab.
#define IDS_TITLE 401
#define IDS_TOOLTIP 10000

// A window's layout table is the RCDATA of the template's id: the smallest width and height in dialog units
// (0: as the template), then pairs of a control and what it keeps its distance to, or how it looks.
#define LAYOUT_LEFT 1
#define LAYOUT_TOP 2
#define LAYOUT_RIGHT 4
#define LAYOUT_BOTTOM 8
#define LAYOUT_FILL 15
#define LAYOUT_HEADING 16
