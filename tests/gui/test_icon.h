// Icons of one colour, for systems that have none of their own.
#pragma once

#include "toolkit/handle.h"

// A square of a colour, opaque.
tvIconHandle SolidIcon(int side, COLORREF color);
