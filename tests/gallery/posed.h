// Buttons that show a state which otherwise only the mouse or the keyboard brings about.
#pragma once

#include <type_traits>

#include "toolkit/check_box.h"
#include "toolkit/mouse_place.h"
#include "toolkit/system.h"

enum class Pose { AsIs, Hot, Focused, Default };

// While it lives, what a window does with the mouse shows as if the mouse were over it.
class MouseLent {
public:
    explicit MouseLent(HWND window) { TheMousePlace().AssumeCaptured(window); }
    ~MouseLent() { TheMousePlace().AssumeCaptured(nullptr); }
    MouseLent(const MouseLent&) = delete;
    MouseLent& operator=(const MouseLent&) = delete;
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

    // A dialog lets but one button be the default one: it must not know of this one.
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_GETDLGCODE && m_pose == Pose::Default) return DLGC_BUTTON;
        return Base::WindowProc(message, wParam, lParam);
    }

    Pose m_pose = Pose::AsIs;
};
