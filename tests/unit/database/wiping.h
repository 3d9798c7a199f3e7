// Looks at the memory of an object from outside: whether anything of it is left after it has gone.
#pragma once

#include <algorithm>
#include <cstring>
#include <new>

#include "platform/types.h"

// A place for one object, filled with a pattern beforehand, so that zeros in it were really written.
template <typename Object>
class ObservedPlace {
public:
    ObservedPlace() { std::memset(m_Bytes, 0xA5, sizeof(m_Bytes)); }

    template <typename... Arguments>
    Object* Construct(Arguments... arguments) {
        return new (m_Bytes) Object(arguments...);
    }

    [[nodiscard]] bool AllZero() const {
        return std::all_of(m_Bytes, m_Bytes + sizeof(m_Bytes), [](u8 byte) { return byte == 0; });
    }

private:
    alignas(Object) u8 m_Bytes[sizeof(Object)];
};
