#include <cstdlib>

#include "tests/unit/environment.h"

void EnvironmentVariable::Set(const std::string& value) const {
    if (value.empty()) {
        unsetenv(m_Name.c_str());
    } else {
        setenv(m_Name.c_str(), value.c_str(), 1);
    }
}
