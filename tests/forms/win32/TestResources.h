#pragma once

// The window that these tests are tried on.
#define IDD_TEST 9001
#define IDD_SMALL 9002
#define IDC_TITLE 9101
#define IDC_NAME 9102
#define IDC_REPORT 9103
#define IDC_BUTTON 9104
#define IDC_LINES 9105
#define IDM_GO 9201
#define IDM_REMOVE 9202
