#include <stdlib.h>

#include "tests/unit/environment.h"

void EnvironmentVariable::Set(const std::string& value) const {
    _putenv((m_Name + '=' + value).c_str());
}
