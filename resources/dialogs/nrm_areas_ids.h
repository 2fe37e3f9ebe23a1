// Controls of the areas tab of the standard-parts dialog (template 10268).
#pragma once

#define IDD_NRM_AREAS 10268

#define IDC_NRMA_ONLY_ARTICLES 10710
#define IDC_NRMA_LABEL 10157
#define IDC_NRMA_LIST 10458
