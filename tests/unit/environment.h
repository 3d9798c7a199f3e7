// Environment variables for tests.
#pragma once

#include <string>

// Sets a variable of this process until the end of the block.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* name, const std::string& value) : m_Name(name) { Set(value); }
    ~EnvironmentVariable() { Set(""); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    // An empty value removes the variable.
    void Set(const std::string& value) const;

    std::string m_Name;
};
