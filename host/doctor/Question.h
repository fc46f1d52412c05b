#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <optional>
#include <thread>
#include <utility>

namespace vantel {

/// Something that is found out on a thread of its own, because whoever is asked may never answer. The thread
/// goes on when nobody waits any longer: leave the program with std::_Exit.
template <typename Answer>
class Question {
public:
    explicit Question(std::function<Answer()> ask) {
        std::packaged_task<Answer()> task(std::move(ask));
        m_answer = task.get_future();
        std::thread(std::move(task)).detach();
    }

    /// To be called once. Absent when there is no answer in time; what the asking threw is thrown here.
    std::optional<Answer> answerBy(std::chrono::steady_clock::time_point deadline) {
        if (m_answer.wait_until(deadline) != std::future_status::ready)
            return std::nullopt;
        return m_answer.get();
    }

private:
    std::future<Answer> m_answer;
};

} // namespace vantel
