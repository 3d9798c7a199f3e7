// Buttons that show a state which otherwise only the mouse or the keyboard brings about.
#pragma once

#include <type_traits>

#include "toolkit/check_box.h"
#include "toolkit/system.h"

enum class Pose { AsIs, Hot, Focused, Default };

// A window that has the mouse to itself for a moment: what it does with the mouse shows as if the mouse were
// over it.
class MouseLent {
public:
    explicit MouseLent(HWND window) : m_Lent(window != nullptr && GetCapture() == nullptr) {
        if (m_Lent) SetCapture(window);
    }
    ~MouseLent() {
        if (m_Lent) ReleaseCapture();
    }
    MouseLent(const MouseLent&) = delete;
    MouseLent& operator=(const MouseLent&) = delete;

private:
    bool m_Lent;
};

template <typename Base>
class Posed : public Base {
public:
    using Base::Base;

    // What the system paints can't be posed: it paints only what is as it is. Where there is a visual style a
    // push button can paint the system's look itself; a check box never does.
    bool UsesSystemLook() override {
        const bool isPosed = m_pose == Pose::Hot || m_pose == Pose::Focused;
        const bool paintsItself = isPosed && IsVisualStyleActive() && !std::is_same_v<Base, tvCheckBox>;
        return !paintsItself && Base::UsesSystemLook();
    }

    void GetColors(const DRAWITEMSTRUCT& item, tvButtonColors& colors) override {
        DRAWITEMSTRUCT posed = item;
        if (m_pose == Pose::Focused) {
            posed.itemState |= ODS_FOCUS;
            posed.itemState &= ~static_cast<UINT>(ODS_NOFOCUSRECT);
        }
        const MouseLent lent(m_pose == Pose::Hot ? this->m_hWnd : nullptr);
        Base::GetColors(posed, colors);
    }

    // A dialog lets but one button be the default one: it must not know of this one. And what is lent for a
    // picture, and given back, is no reason for the next picture.
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_GETDLGCODE && m_pose == Pose::Default) return DLGC_BUTTON;
        if (message == WM_CAPTURECHANGED && m_pose == Pose::Hot) return 0;
        return Base::WindowProc(message, wParam, lParam);
    }

    Pose m_pose = Pose::AsIs;
};
