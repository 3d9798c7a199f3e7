// The mouse belongs to the tests alone.
#pragma once

#include "toolkit/win32.h"

// While it exists nothing but SendInput moves the mouse or presses its buttons. Make it in the thread that
// dispatches messages.
//
// Without it clicks are lost on a busy machine. The display tells each program under Wine where the mouse has
// been, for instance as a menu closes, and Wine takes what a program learns late for a move by hand: after
// the test has moved the mouse to a button it is back for a moment where it was before. The press or the
// release that is made just then goes to another place.
class OwnMouse {
public:
    OwnMouse();
    ~OwnMouse();
    OwnMouse(const OwnMouse&) = delete;
    OwnMouse& operator=(const OwnMouse&) = delete;

private:
    HHOOK m_Hook;
};
