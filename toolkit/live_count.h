// How many objects that paint through a buffer there are. The system's buffered painting is made ready for
// the first of them and ended after the last.
#pragma once

#include <atomic>

#include "platform/types.h"

class LiveCount {
public:
    void Add();
    void Remove();
    [[nodiscard]] u64 Value() const noexcept { return m_Count; }

private:
    std::atomic<u64> m_Count = 0;  // atomic, since objects that are made before the program starts count too
};

LiveCount& TheLiveCount() noexcept;
