// Controls of the search tab of the standard-parts dialog (template 10267).
#pragma once

#define IDD_NRM_SEARCH 10267

#define IDC_NRMS_MASK_LABEL 10784
#define IDC_NRMS_MASK 10785
#define IDC_NRMS_START 10786
#define IDC_NRMS_LIST 10787
#define IDC_NRMS_COUNT 10788
#define IDC_NRMS_GOTO 10789
#define IDC_NRMS_PREVIEW 10519
