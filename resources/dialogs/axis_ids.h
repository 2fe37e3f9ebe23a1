// Controls of the axis-symbol dialog (template 10255).
#pragma once

#define IDD_AXIS 10255

// OK, Cancel, help and the L, S and B buttons have their common numbers.
#define IDC_AXIS_PREVIEW 10706
#define IDC_AXIS_PROPS_GROUP 10693
#define IDC_AXIS_CONS 10708
#define IDC_AXIS_LEN_LABEL 10640
#define IDC_AXIS_LEN 10699
#define IDC_AXIS_CLAMP_CHECK 10694
#define IDC_AXIS_CLAMP 10695
#define IDC_AXIS_REPR_GROUP 10283
#define IDC_AXIS_OUTLINE 10698
#define IDC_AXIS_HATCHED 10219
