// Numbers of the dialogs and of their controls. The numbers are fixed: language files and hosts
// address controls by them.
#pragma once

#define IDD_FERRY 102
#define IDD_BUSY 131
#define IDD_FILE_MODE 134

#define IDI_FERRY 128

// The confirmation dialog.
#define IDC_SOURCE_LIST 1200
#define IDC_TAB_LIST 1201
#define IDC_COUNT 1350
#define IDC_DESTINATION 1410
#define IDC_BROWSE 1100
#define IDC_FAVOURITES 1101
#define IDC_OTHER_TABS 1102
#define IDC_COPY 1224
#define IDC_MOVE 1225
#define IDC_BATCH 1550
#define IDC_INDIVIDUAL 1551
#define IDC_OPEN_TARGET 1031
#define IDC_NO_ASK 1030
#define IDC_POLICY_GROUP 1140
#define IDC_PRECISION_LABEL 1141
#define IDC_PRECISION 1170
#define IDC_LIST_LABEL 1903
#define IDC_DESTINATION_LABEL 1900
#define IDC_OPERATION_LABEL 1901
#define IDC_MODE_LABEL 1902

// The collision policies there; their order is that of the policies, not of the numbers.
#define IDC_POLICY_OVERWRITE_OLDER 1220
#define IDC_POLICY_OVERWRITE_NEWER 1227
#define IDC_POLICY_KEEP_EXISTING 1222
#define IDC_POLICY_OVERWRITE 1221
#define IDC_POLICY_RENAME_INCOMING 1223
#define IDC_POLICY_RENAME_EXISTING 1228
#define IDC_POLICY_RENAME_AUTOMATICALLY 1229
#define IDC_POLICY_ASK_EACH 1230

// The progress dialog.
#define IDC_BUSY_TITLE 1350
#define IDC_BUSY_ITEM 1352
#define IDC_BUSY_BAR 1290

// The collision dialog.
#define IDC_ITEM_NAME 1000
#define IDC_CHOICE_GROUP 1900
#define IDC_CHOICE_FIRST 1220
#define IDC_APPLY_TO_ALL 5
#define IDC_STOP_ALL 7
