// Dialog templates built in memory: the system's own form with a font, plain and without titles. Controls
// have fixed sizes, so that an entry can be changed after it was added.
#pragma once

#include <memory>

#include "platform/types.h"
#include "toolkit/win32.h"

// The classes of controls, by the system's atoms.
enum ControlAtom : u16 {
    ATOM_BUTTON = 128,
    ATOM_EDIT = 129,
    ATOM_STATIC = 130,
    ATOM_LISTBOX = 131,
    ATOM_SCROLLBAR = 132,
    ATOM_COMBOBOX = 133,
};

using i16 = std::int16_t;

enum class DialogKind { Popup, Child };

#pragma pack(push, 2)
// One control, as it stands in the template.
struct DialogControl {
    u32 style;
    u32 exStyle;
    i16 x, y, cx, cy;  // dialog units
    u16 id;
    u16 classMark;  // 0xFFFF: the class is an atom
    u16 classAtom;
    u16 title;
    u16 creationData;
    u16 alignment;
};

struct DialogHeader {
    u32 style;
    u32 exStyle;
    u16 count;
    i16 x, y, cx, cy;  // dialog units
    u16 menu;
    char16_t className[11];
    u16 title;
    u16 pointSize;
    char16_t faceName[9];
};
#pragma pack(pop)
static_assert(sizeof(DialogControl) == 28 && sizeof(DialogHeader) == 64);

class DialogTemplate {
public:
    // Starts anew, with room for `reserve` controls.
    void Begin(int cx, int cy, DialogKind kind, int reserve);

    // The new control with the usual styles of its class, or null for a class that is none of the six. It
    // stays good until the next one is added.
    DialogControl* AddControl(u16 atom, u16 id, int x, int y, int cx, int cy);

    // A control by its place; null if there is none.
    [[nodiscard]] DialogControl* Item(int index) const;

    // Null before Begin.
    [[nodiscard]] DialogHeader* Header() const noexcept;
    [[nodiscard]] const DLGTEMPLATE* Get() const noexcept;

    // The bytes that are used, and those that there is room for: a multiple of four controls beyond the
    // header.
    [[nodiscard]] std::size_t Size() const noexcept;
    [[nodiscard]] std::size_t Capacity() const noexcept { return m_templateBytes; }

    // --- Fields, in their order ---

    u16 m_pointSize = 9;
    const char16_t* m_faceName = u"Segoe UI";
    const char16_t* m_className = u"tvThemeWnd";
    std::unique_ptr<u8[]> m_template;
    u32 m_templateBytes = 0;  // that there is room for

private:
    // Makes room, with zeros behind what is there.
    void Reserve(std::size_t bytes);
};
