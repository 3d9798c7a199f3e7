// Orders to the fault points and the clock that end with the test's block.
#pragma once

#include "platform/clock.h"
#include "platform/fault.h"

class Faults {
public:
    Faults() = default;
    ~Faults() {
        platform::ClearFaults();
        platform::ClearClock();
    }
    Faults(const Faults&) = delete;
    Faults& operator=(const Faults&) = delete;

    // The point works `after` times more, then fails once.
    Faults& Fail(platform::FaultPoint point, u32 error, int after = 0) {
        platform::OrderFault(point, error, after);
        return *this;
    }

    // The system has no random bytes, and the clock stands at this second since the start of 1970.
    Faults& FixSalt(u64 second) {
        platform::OrderFault(platform::FaultPoint::RandomBytes, 0, 0, 1000);
        const u64 ticks = (second + 11'644'473'600) * 10'000'000;
        platform::SetClock(ticks, ticks);
        return *this;
    }
};
