// COM for the calling thread, in an apartment of its own, counted: a scope takes part while it lives.
#pragma once

class tvcominit {
public:
    tvcominit() { Count(0); }
    ~tvcominit() { Count(-1); }
    tvcominit(const tvcominit&) = delete;
    tvcominit& operator=(const tvcominit&) = delete;

private:
    // A negative number gives one back; COM ends with the last.
    static void Count(int change);
};
