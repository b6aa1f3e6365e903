// Numbers of the host's menus, dialogs and commands.
#pragma once

#define IDR_FRAME 1
#define IDD_SETTINGS 10
#define IDD_OPEN_COMPANY 11

#define IDM_FILE_OPEN 100
#define IDM_FILE_EXIT 101
#define IDM_ITEM_CLASSES 110
#define IDM_PRICE_DOWN 111
#define IDM_SETTINGS 120
#define IDM_WINDOW_CASCADE 130
#define IDM_WINDOW_TILE 131

#define IDI_REFRESH 301
#define IDI_TOOL_STRIP 302
#define IDI_STATUS_BAR 303

// Commands of the merged toolbar, by position.
#define IDM_FIRST_TOOL 1000
// Child windows, numbered by the system.
#define IDM_FIRST_CHILD 2000

#define IDC_USER 200
#define IDC_LANGUAGE 201
#define IDC_ITEM_CLASS_TYPE 202
#define IDC_SHORT_NUMBERS 203
#define IDC_YEAR 204
#define IDC_PERIOD 205
#define IDC_VOUCHER 206
#define IDC_RIGHT_ADD 210
#define IDC_RIGHT_EDIT 211
#define IDC_RIGHT_DELETE 212
#define IDC_RIGHT_PRINT 213
#define IDC_SCOPE_2 214
#define IDC_SCOPE_1 215
#define IDC_SCOPE_0 216
#define IDC_COMPANY 220
#define IDC_PASSWORD 221
#define IDC_BROWSE 222
