// IDs of the dialog that the tests of the platform's special controls drive.
#pragma once

#define IDD_ZELCTL_TEST 30500

#define IDC_ZT_LENGTH 100
#define IDC_ZT_INCH 101
#define IDC_ZT_ANGLE 102
#define IDC_ZT_TEXT 103
#define IDC_ZT_OWN 104
#define IDC_ZT_COUNTRY 110
#define IDC_ZT_SIZES 111
#define IDC_ZT_EDGES 112
#define IDC_ZT_ENTRIES 113
#define IDC_ZT_BUTTON 120
