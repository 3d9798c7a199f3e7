// What dialogs that lay themselves out have in common: a paragraph at the top, a round frame around what
// belongs together, OK and Cancel at the bottom right. All in pixels of the dialog's client area.
#pragma once

#include "foundation/tvstring.h"
#include "toolkit/wnd.h"

// How a paragraph is measured and drawn.
inline constexpr UINT kParagraphFlags = DT_WORDBREAK | DT_EDITCONTROL;

// The client area without the page margins.
RECT ContentOf(const RECT& client);

// The width nearest to the given one that has room for four buttons side by side and not for more than five.
int FittingContentWidth(int width, int buttonWidth);

// The height of a text that is drawn with these flags into a rectangle of this width, on a dialog's surface.
int HeightOfText(HWND dialog, HFONT font, const tvstring& text, int width, UINT flags);

// Of a control of the dialog, with the scroll box that it may stand in; and its place in the dialog.
SIZE SizeOf(const tvWnd& window);
RECT PlaceOf(const tvWnd& window);

void MoveTo(const tvWnd& window, int x, int y);
void Place(const tvWnd& window, const RECT& rect);

// Puts Cancel with its right end at `right` and OK beside it.
void PlaceOkAndCancel(const tvWnd& okButton, const tvWnd& cancelButton, int right, int top);

// Gives a dialog the client area that this content has with margins around it. It does not move.
void SizeToContent(HWND dialog, const RECT& content);

// A frame without a ground of its own.
void DrawGroupFrame(HDC dc, const RECT& rect);

// With the context's font and colour; flags are those of DrawTextW.
void DrawTextIn(HDC dc, const tvstring& text, RECT rect, UINT flags);
