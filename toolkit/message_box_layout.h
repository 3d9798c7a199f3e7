// Where everything stands in a message box, as arithmetic in pixels: no window is needed. Texts are measured
// by a function that is handed in.
#pragma once

#include <functional>

#include "toolkit/win32.h"

// The size of a text that is wrapped to a width.
using TextMeasure = std::function<SIZE(int width)>;

struct MessageBoxMetrics {
    int marginX = 0;
    int marginY = 0;
    int border = 0;  // between heading and body
    SIZE button{};
    int gap = 0;      // between buttons
    int limit = 0;    // the width that a box keeps to as long as it can, and that its title does not exceed
    SIZE frame{};     // of the window around its client area
    SIZE workArea{};  // of the monitor
    SIZE icon{};      // all zero: there is no column for one
    int buttons = 0;

    // The width of the icon's column.
    [[nodiscard]] int IconColumn() const noexcept { return icon.cx == 0 ? 0 : icon.cx + marginX; }
};

// The area that heading and body take. An empty heading is not measured: hand in an empty function. The
// widths that are tried become larger until the area is low enough for the screen; the last one stands. An
// area that is narrow for its height is made wider.
SIZE MeasureMessage(const MessageBoxMetrics& metrics, const TextMeasure& heading, const TextMeasure& body);

// The width that a check box may take.
int CheckBoxLimit(const MessageBoxMetrics& metrics);

// The client area for a text of this size and a check box, of size zero if there is none. It is never higher
// than the screen has room for, so that the buttons can be seen.
SIZE MessageBoxClient(const MessageBoxMetrics& metrics, SIZE text, SIZE check);

// What the window's title has to say about its width.
struct CaptionMetrics {
    int window = 0;    // as it is
    int titleBar = 0;  // as it is
    int button = 0;    // of a caption's button
    int text = 0;      // of the title
};

// The width of a window that is to be `width`: more if its title needs it, up to the limit.
int WidthForCaption(const MessageBoxMetrics& metrics, int width, const CaptionMetrics& caption);

// --- Places in a client area ---

// Buttons are counted from the right, from 0.
RECT ButtonPlace(const MessageBoxMetrics& metrics, SIZE client, int index);

// The top left corner of a check box.
POINT CheckBoxPlace(const MessageBoxMetrics& metrics, SIZE client, SIZE check);

// What icon and texts may take.
RECT MessageArea(const MessageBoxMetrics& metrics, SIZE client, SIZE check);
