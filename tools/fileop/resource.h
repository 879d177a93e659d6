// Numbers of the service's dialogs and their controls.
#pragma once

#define IDD_COLLISION 101
#define IDD_ERROR 102
#define IDD_PROGRESS 103

#define IDC_TEXT 1001
#define IDC_SOURCE 1002
#define IDC_TARGET 1003
#define IDC_FOR_ALL 1004
#define IDC_BAR 1005
#define IDC_REPLACE 1101
#define IDC_SKIP 1102
