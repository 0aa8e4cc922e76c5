#pragma once

// Ids of windows, controls, timers and commands, shared by the resource script and the portable forms.
// Plain defines, since the resource compiler reads them too.

// Windows
#define IDD_REMINDER 101
#define IDD_MAIN 102
#define IDD_INPUTBOX 103
#define IDD_DATE 104

// frmReminder
#define IDC_lblHeading 1001
#define IDC_lstReminders 1002
#define IDC_txtSleep 1003
#define IDC_cmdRemindMe 1004
#define IDC_lblMinutes 1005
#define IDC_cmdContinue 1006
#define IDT_Timer1 1007

// frmMain
#define IDC_ListEvents 1101
#define IDC_chkExpired 1102
#define IDC_lblShow 1103
#define IDC_cmbCategories 1104
#define IDC_fraFilter 1105
#define IDT_TimerRefresh 1106

// Commands of menus and accelerators
#define IDM_FIND 2001
#define IDM_FINDNEXT 2002
#define IDM_EDIT 2003
#define IDM_DELETE 2004
#define IDM_REFRESH 2005

#define IDR_MENU_LIST 201
#define IDI_KAZ 301

// The input box
#define IDC_lblPrompt 1201
#define IDC_txtAnswer 1202

// The date box
#define IDC_lblDatePrompt 1301
#define IDC_calDate 1302

// Texts: the title of message boxes; the tooltip of a control is the string IDS_TOOLTIP + the control's id.
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
