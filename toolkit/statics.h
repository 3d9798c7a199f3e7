// The toolkit's own objects that live as long as the process: the theme (toolkit/theme.h), the map of
// windows, the tool tip and GDI+. They are made in this order before the program starts, and go in the
// reverse one.
#pragma once

class tvTheme;
class tvWndMap;
class tvToolTipCtrl;

tvTheme& TheTheme();
tvWndMap& TheWndMap();
tvToolTipCtrl& TheToolTip();
