#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace vantel::testing {

/// Sets one environment variable, or takes it away, and puts the earlier state back at the end of its own
/// life. For tests of one thread: the environment belongs to the whole process.
class ScopedEnvironment {
public:
    ScopedEnvironment(std::string name, const std::optional<std::string>& value)
        : m_name(std::move(name))
        , m_before(current(m_name)) {
        assign(value);
    }

    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

    ~ScopedEnvironment() { assign(m_before); }

private:
    static std::optional<std::string> current(const std::string& name) {
        const char* value = std::getenv(name.c_str());
        return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
    }

    void assign(const std::optional<std::string>& value) const {
        if (value)
            ::setenv(m_name.c_str(), value->c_str(), 1);
        else
            ::unsetenv(m_name.c_str());
    }

    std::string m_name;
    std::optional<std::string> m_before;
};

} // namespace vantel::testing
