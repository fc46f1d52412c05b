#pragma once

#include <future>

namespace vantel::testing {

/// Holds up whoever waits at it until it opens, as a lock does that somebody else holds. Copies are the same
/// gate.
class Gate {
public:
    void wait() const { m_state->opened.wait(); }
    void open() const { m_state->promise.set_value(); }

private:
    struct State {
        std::promise<void> promise;
        std::shared_future<void> opened = promise.get_future().share();
    };

    std::shared_ptr<State> m_state = std::make_shared<State>();
};

} // namespace vantel::testing
