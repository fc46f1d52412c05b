#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace vantel {

/// Runs jobs one after the other on a thread of its own, which exists only while there is something to do.
/// A job may block for ever: nothing here waits for it, except `drain` for as long as it is told to. Jobs own
/// all that they touch, since one may outlive everything else, and throw nothing.
class Worker {
public:
    Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    /// Lets go: jobs that have not begun are dropped, the one that runs ends by itself, nobody waits.
    ~Worker();

    void run(std::function<void()> job);

    /// Waits until every job has ended, but no longer than `patience`. Whether they all have; if not, those
    /// that have not begun never will.
    bool drain(std::chrono::milliseconds patience);

private:
    struct State;

    std::shared_ptr<State> m_state;
};

} // namespace vantel
