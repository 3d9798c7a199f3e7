#include "platform/fault.h"

#ifdef VAULTMERE_FAULTS

#include <array>

#include "platform/error.h"

namespace platform {
namespace {

struct Order {
    int after = 0;
    int times = 0;
    u32 error = 0;
};

struct State {
    std::array<Order, static_cast<std::size_t>(FaultPoint::Count)> orders{};
    bool clockSet = false;
    u64 localTicks = 0;
    u64 systemTicks = 0;
    WipeWatcher watcher = nullptr;
};

constinit State g_State;

Order& OrderOf(FaultPoint point) noexcept {
    return g_State.orders[static_cast<std::size_t>(point)];
}

}  // namespace

bool FaultFires(FaultPoint point) noexcept {
    Order& order = OrderOf(point);
    if (order.times == 0) return false;
    if (order.after > 0) {
        --order.after;
        return false;
    }
    --order.times;
    SetLastError(order.error);
    return true;
}

void OrderFault(FaultPoint point, u32 error, int after, int times) noexcept {
    OrderOf(point) = {after, times, error};
}

void ClearFaults() noexcept {
    g_State.orders = {};
}

void SetClock(u64 localTicks, u64 systemTicks) noexcept {
    g_State.clockSet = true;
    g_State.localTicks = localTicks;
    g_State.systemTicks = systemTicks;
}

void ClearClock() noexcept {
    g_State.clockSet = false;
}

bool ClockIsSet(u64& localTicks, u64& systemTicks) noexcept {
    if (!g_State.clockSet) return false;
    localTicks = g_State.localTicks;
    systemTicks = g_State.systemTicks;
    return true;
}

void WatchWiping(WipeWatcher watcher) noexcept {
    g_State.watcher = watcher;
}

void MemoryIsWiped(const void* memory, std::size_t size) noexcept {
    if (g_State.watcher != nullptr) g_State.watcher(memory, size);
}

}  // namespace platform

#endif
