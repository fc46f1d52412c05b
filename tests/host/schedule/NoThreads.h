#pragma once

#include <cstddef>

#include <pthread.h>

namespace vantel::testing {

/// While it is there, the system gives no thread: each would need more stack than there are addresses.
class NoThreads {
public:
    NoThreads() {
        constexpr std::size_t beyondAllMemory = std::size_t(1) << 62U;
        ::pthread_getattr_default_np(&m_before);
        pthread_attr_t impossible;
        ::pthread_attr_init(&impossible);
        ::pthread_attr_setstacksize(&impossible, beyondAllMemory);
        ::pthread_setattr_default_np(&impossible);
        ::pthread_attr_destroy(&impossible);
    }
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;
    ~NoThreads() {
        ::pthread_setattr_default_np(&m_before);
        ::pthread_attr_destroy(&m_before);
    }

private:
    pthread_attr_t m_before{};
};

} // namespace vantel::testing
