#pragma once

#include <cstdlib>
#include <string>

namespace vantix::test {

/// While it exists, a variable of the environment has this value.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* name, const std::string& value) : m_name(name) {
        if (const char* before = std::getenv(name); before != nullptr) {
            m_before = before;
        }
        Set(value);
    }
    ~EnvironmentVariable() { Set(m_before); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    /// An empty value is none.
    void Set(const std::string& value) const {
#if defined(_WIN32)
        _putenv_s(m_name, value.c_str());
#else
        if (value.empty()) {
            unsetenv(m_name);
        } else {
            setenv(m_name, value.c_str(), 1);
        }
#endif
    }

    const char* m_name;
    std::string m_before;
};

}  // namespace vantix::test
