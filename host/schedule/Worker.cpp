#include "host/schedule/Worker.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace vantel {

struct Worker::State {
    std::mutex mutex;
    std::condition_variable becameIdle;
    std::deque<std::function<void()>> jobs;
    bool isRunning = false;

    /// The next job; none ends the thread.
    std::function<void()> next() {
        const std::scoped_lock lock(mutex);
        if (jobs.empty()) {
            isRunning = false;
            becameIdle.notify_all();
            return {};
        }
        auto job = std::move(jobs.front());
        jobs.pop_front();
        return job;
    }

    void runAll() {
        while (const auto job = next())
            job();
    }
};

Worker::Worker()
    : m_state(std::make_shared<State>()) {}

Worker::~Worker() {
    const std::scoped_lock lock(m_state->mutex);
    m_state->jobs.clear();
}

void Worker::run(std::function<void()> job) {
    const std::scoped_lock lock(m_state->mutex);
    m_state->jobs.push_back(std::move(job));
    if (!std::exchange(m_state->isRunning, true))
        std::thread([state = m_state] { state->runAll(); }).detach();
}

bool Worker::drain(std::chrono::milliseconds patience) {
    std::unique_lock lock(m_state->mutex);
    const bool isDone = m_state->becameIdle.wait_for(lock, patience, [this] { return !m_state->isRunning; });
    m_state->jobs.clear();
    return isDone;
}

} // namespace vantel
