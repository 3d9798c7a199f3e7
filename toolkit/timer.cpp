#include "toolkit/timer.h"

#include <map>
#include <mutex>
#include <utility>

namespace {

constexpr UINT_PTR kFirstId = 1314;
constexpr UINT_PTR kMostTimers = 1000;
constexpr UINT_PTR kLargestId = 0x8000'0000;

using Key = std::pair<UINT_PTR, HWND>;

// All timers that run, under their lock. Made when the first one is asked for, and never destroyed: windows
// of static objects go after what is made so late.
struct Registry {
    std::recursive_mutex lock;
    std::map<Key, tvWndTimer*> timers;
};

Registry& TheRegistry() {
    static auto& registry = *new Registry;
    return registry;
}

// The identifier for a timer of the window, which it may hold already; 0 if there is none.
UINT_PTR IdFor(const tvWndTimer& timer, HWND window) {
    const auto& timers = TheRegistry().timers;
    if (timer.m_id != 0) {
        const auto found = timers.find({timer.m_id, window});
        return found == timers.end() || found->second == &timer ? timer.m_id : 0;
    }
    for (UINT_PTR id = kFirstId; id < kFirstId + kMostTimers; ++id) {
        if (!timers.contains({id, window})) return id;
    }
    return 0;
}

}  // namespace

void tvWndTimer::OnTimer() {}

tvWndTimer::~tvWndTimer() {
    Stop();
}

bool tvWndTimer::Start(HWND window, UINT milliseconds) {
    if (m_hWnd != nullptr && m_hWnd != window) StopAll(m_hWnd);
    const std::scoped_lock guard(TheRegistry().lock);
    const UINT_PTR id = IdFor(*this, window);
    if (id == 0 || SetTimer(window, id, milliseconds, nullptr) == 0) return false;
    m_hWnd = window;
    m_id = id;
    TheRegistry().timers[{id, window}] = this;
    return true;
}

void tvWndTimer::Stop() {
    const std::scoped_lock guard(TheRegistry().lock);
    if (m_id == 0) return;
    KillTimer(m_hWnd, m_id);
    TheRegistry().timers.erase({m_id, m_hWnd});
    m_hWnd = nullptr;
    m_id = 0;
}

bool tvWndTimer::IsMine(HWND window, UINT_PTR id) const noexcept {
    return window == m_hWnd && id != 0 && id < kLargestId && id == m_id;
}

void tvWndTimer::StopAll(HWND window) {
    const std::scoped_lock guard(TheRegistry().lock);
    auto& timers = TheRegistry().timers;
    for (auto next = timers.begin(); next != timers.end();) {
        tvWndTimer* timer = next->first.second == window ? next->second : nullptr;
        ++next;
        if (timer != nullptr) timer->Stop();
    }
}
