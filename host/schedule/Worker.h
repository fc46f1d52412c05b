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

    /// Whether the job will run. It will not where the system gives no thread: then it is dropped, and
    /// nothing else is waiting or running.
    [[nodiscard]] bool run(std::function<void()> job);

    /// Waits until every job has ended, but no longer than `patience`. Whether they all have; if not, those
    /// that have not begun never will.
    bool drain(std::chrono::milliseconds patience);

private:
    struct State;

    static bool start(const std::shared_ptr<State>& state);

    std::shared_ptr<State> m_state;
};

/// Why a job did not run, as the reason in a sentence.
inline constexpr const char* noThreadReason = "the system gives the program no thread for it";

} // namespace vantel
