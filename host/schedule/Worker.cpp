#include "host/schedule/Worker.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <system_error>
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

bool Worker::start(const std::shared_ptr<State>& state) {
    try {
        std::thread([state] { state->runAll(); }).detach();
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

Worker::Worker()
    : m_state(std::make_shared<State>()) {}

Worker::~Worker() {
    const std::scoped_lock lock(m_state->mutex);
    m_state->jobs.clear();
}

bool Worker::run(std::function<void()> job) {
    const std::scoped_lock lock(m_state->mutex);
    m_state->jobs.push_back(std::move(job));
    if (!m_state->isRunning)
        m_state->isRunning = start(m_state);
    if (!m_state->isRunning)
        m_state->jobs.clear();
    return m_state->isRunning;
}

bool Worker::drain(std::chrono::milliseconds patience) {
    std::unique_lock lock(m_state->mutex);
    const bool isDone = m_state->becameIdle.wait_for(lock, patience, [this] { return !m_state->isRunning; });
    m_state->jobs.clear();
    return isDone;
}

} // namespace vantel
