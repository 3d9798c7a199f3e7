#include "toolkit/dialog_template.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace {

constexpr u32 kPopupStyle = 0x82C8'00C0;
constexpr u32 kChildStyle = 0x4600'0440;
constexpr u16 kClassIsAtom = 0xFFFF;
constexpr std::size_t kStep = 4;  // controls by which the room grows

struct ClassStyle {
    u16 atom;
    u32 style;
    u32 exStyle;
};
constexpr ClassStyle kClassStyles[] = {
    {ATOM_BUTTON, 0x5601'0000, 0},      {ATOM_EDIT, 0x5601'0080, 0x200},  {ATOM_STATIC, 0x5600'0000, 0},
    {ATOM_LISTBOX, 0x5621'0001, 0x200}, {ATOM_SCROLLBAR, 0x5600'0000, 0}, {ATOM_COMBOBOX, 0x5621'0003, 0},
};

std::size_t RoomFor(int controls) {
    return (static_cast<std::size_t>(controls) + kStep - 1) / kStep * kStep * sizeof(DialogControl) +
           sizeof(DialogHeader);
}

// Copies a text that has to fit with its zero, cut where it does not.
template <std::size_t Size>
void CopyText(char16_t (&out)[Size], std::u16string_view text) {
    text = text.substr(0, Size - 1);
    *std::copy(text.begin(), text.end(), out) = 0;
}

}  // namespace

void DialogTemplate::Begin(int cx, int cy, DialogKind kind, int reserve) {
    m_template.reset();
    m_templateBytes = 0;
    Reserve(RoomFor(std::max(reserve, 0)));
    DialogHeader& header = *Header();
    header.style = kind == DialogKind::Popup ? kPopupStyle : kChildStyle;
    header.cx = static_cast<i16>(cx);
    header.cy = static_cast<i16>(cy);
    CopyText(header.className, m_className);
    header.pointSize = m_pointSize;
    CopyText(header.faceName, m_faceName);
}

void DialogTemplate::Reserve(std::size_t bytes) {
    if (bytes <= m_templateBytes) return;
    auto larger = std::make_unique<u8[]>(bytes);
    std::copy_n(m_template.get(), m_templateBytes, larger.get());
    m_template = std::move(larger);
    m_templateBytes = static_cast<u32>(bytes);
}

DialogControl* DialogTemplate::AddControl(u16 atom, u16 id, int x, int y, int cx, int cy) {
    const auto* style = std::find_if(std::begin(kClassStyles), std::end(kClassStyles),
                                     [atom](const ClassStyle& known) { return known.atom == atom; });
    if (style == std::end(kClassStyles) || m_template == nullptr) return nullptr;
    const int place = Header()->count;
    Reserve(RoomFor(place + 1));
    Header()->count = static_cast<u16>(place + 1);
    DialogControl* control = Item(place);
    *control = {style->style,
                style->exStyle,
                static_cast<i16>(x),
                static_cast<i16>(y),
                static_cast<i16>(cx),
                static_cast<i16>(cy),
                id,
                kClassIsAtom,
                atom,
                0,
                0,
                0};
    return control;
}

DialogControl* DialogTemplate::Item(int index) const {
    if (m_template == nullptr || index < 0 || index >= Header()->count) return nullptr;
    u8* place =
        m_template.get() + sizeof(DialogHeader) + static_cast<std::size_t>(index) * sizeof(DialogControl);
    return reinterpret_cast<DialogControl*>(place);
}

DialogHeader* DialogTemplate::Header() const noexcept {
    return m_template == nullptr ? nullptr : reinterpret_cast<DialogHeader*>(m_template.get());
}

const DLGTEMPLATE* DialogTemplate::Get() const noexcept {
    return m_template == nullptr ? nullptr : reinterpret_cast<const DLGTEMPLATE*>(m_template.get());
}

std::size_t DialogTemplate::Size() const noexcept {
    if (m_template == nullptr) return 0;
    const auto& header = *reinterpret_cast<const DialogHeader*>(m_template.get());
    return sizeof header + header.count * sizeof(DialogControl);
}
