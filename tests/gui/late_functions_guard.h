// For tests that replace functions of the system: all are as they were when the object goes.
#pragma once

#include "toolkit/late_functions.h"

class LateFunctionsGuard {
public:
    LateFunctionsGuard() : m_Before(TheLateFunctions()) {}
    ~LateFunctionsGuard() { TheLateFunctions() = m_Before; }
    LateFunctionsGuard(const LateFunctionsGuard&) = delete;
    LateFunctionsGuard& operator=(const LateFunctionsGuard&) = delete;

private:
    LateFunctions m_Before;
};
