#include "toolkit/message_box_layout.h"

#include <algorithm>

namespace {

constexpr int kAspect = 3;  // an area of text is at least so many times as wide as it is high

// Heading above body.
SIZE Stacked(const MessageBoxMetrics& metrics, const TextMeasure& heading, const TextMeasure& body,
             int width) {
    SIZE size = body(width);
    if (!heading) return size;
    const SIZE above = heading(width);
    return {std::max(size.cx, above.cx), size.cy + metrics.border + above.cy};
}

// The client area less the sides and the top and bottom that controls keep free.
RECT ControlFrame(const MessageBoxMetrics& metrics, SIZE client) {
    const int side = metrics.marginX + metrics.marginX / 2;
    return {side, metrics.marginY, client.cx - side, client.cy - metrics.marginY};
}

}  // namespace

SIZE MeasureMessage(const MessageBoxMetrics& metrics, const TextMeasure& heading, const TextMeasure& body) {
    const int screen = metrics.workArea.cx;
    const int highest = metrics.workArea.cy - 4 * metrics.marginY - metrics.frame.cy - metrics.button.cy;
    SIZE size{};
    for (const int candidate : {metrics.limit, screen * 5 / 8, screen * 3 / 4, screen * 7 / 8}) {
        const int width = candidate - metrics.IconColumn() - 4 * metrics.marginX - metrics.frame.cx;
        if (width <= 0) continue;
        size = Stacked(metrics, heading, body, width);
        const int wide = std::min(metrics.limit, kAspect * static_cast<int>(size.cy));
        if (wide > size.cx) size = {wide, Stacked(metrics, heading, body, wide).cy};
        if (size.cy <= highest) break;
    }
    return size;
}

int CheckBoxLimit(const MessageBoxMetrics& metrics) {
    return metrics.IconColumn() + metrics.marginX + metrics.limit;
}

SIZE MessageBoxClient(const MessageBoxMetrics& metrics, SIZE text, SIZE check) {
    const int forButtons =
        metrics.marginX + (metrics.buttons - 1) * metrics.gap + metrics.buttons * metrics.button.cx;
    int width = std::max<int>(text.cx, forButtons);
    int height = std::max(text.cy, metrics.icon.cy);
    if (check.cy != 0) {
        width = std::max<int>(width, check.cx - metrics.IconColumn() - metrics.marginX);
        height += check.cy + metrics.marginY;
    }
    height += 4 * metrics.marginY + metrics.button.cy;
    const int highest = metrics.workArea.cy - metrics.frame.cy;
    return {metrics.IconColumn() + width + 4 * metrics.marginX, std::min<int>(height, highest)};
}

int WidthForCaption(const MessageBoxMetrics& metrics, int width, const CaptionMetrics& caption) {
    constexpr int kAir = 10;
    if (width >= metrics.limit) return width;
    const int needed = caption.window - caption.titleBar + caption.button + caption.text + kAir;
    return std::max(width, std::min(needed, metrics.limit));
}

RECT ButtonPlace(const MessageBoxMetrics& metrics, SIZE client, int index) {
    const RECT frame = ControlFrame(metrics, client);
    const int right = frame.right - index * (metrics.button.cx + metrics.gap);
    return {right - metrics.button.cx, frame.bottom - metrics.button.cy, right, frame.bottom};
}

POINT CheckBoxPlace(const MessageBoxMetrics& metrics, SIZE client, SIZE check) {
    const RECT frame = ControlFrame(metrics, client);
    return {frame.left, frame.bottom - metrics.button.cy - metrics.marginY - check.cy};
}

RECT MessageArea(const MessageBoxMetrics& metrics, SIZE client, SIZE check) {
    RECT area = {2 * metrics.marginX, metrics.marginY, client.cx - 2 * metrics.marginX,
                 client.cy - metrics.marginY};
    // A text that is too high for the screen ends above the controls.
    area.bottom -= metrics.button.cy + metrics.marginY;
    if (check.cy != 0) area.bottom -= check.cy + metrics.marginY;
    return area;
}
