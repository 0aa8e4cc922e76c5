#pragma once

// The window that these tests are tried on.
#define IDD_TEST 9001
#define IDD_SMALL 9002
#define IDC_TITLE 1901
#define IDC_NAME 1902
#define IDC_REPORT 1903
#define IDC_BUTTON 1904
#define IDC_LINES 1905
#define IDM_GO 2901
#define IDM_REMOVE 2902
