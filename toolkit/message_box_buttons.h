// The sets of buttons that a message box can have, as the low four bits of its style say.
#pragma once

#include <array>
#include <span>

#include "platform/types.h"

class MessageButtonSet {
public:
    // A style that names no set has no buttons.
    explicit MessageButtonSet(u32 style) noexcept;

    // The results that the buttons stand for, from right to left.
    [[nodiscard]] std::span<const int> Buttons() const noexcept { return {m_Buttons.data(), m_Count}; }
    [[nodiscard]] bool Has(int button) const noexcept;

    // The result of closing the box; 0 if that is not for the set to say.
    [[nodiscard]] int ClosedResult() const noexcept { return m_Closed; }

    // The icon bits where the style has none; 0 for no icon.
    [[nodiscard]] u32 UsualIcon() const noexcept { return m_Icon; }

    // The place among the buttons, from the right, of the one that Enter stands for. -1 without buttons.
    [[nodiscard]] int DefaultIndex(u32 style) const noexcept;

private:
    std::array<int, 3> m_Buttons{};
    std::size_t m_Count = 0;
    int m_Closed = 0;
    u32 m_Icon = 0;
};
