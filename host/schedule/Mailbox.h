#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>

namespace vantel {

/// The way from other threads to an object of the window thread: what is posted runs there, later, and not at
/// all when the object is gone by then.
class Mailbox {
public:
    /// Where to post. May be copied to any thread and outlive the mailbox.
    class Address {
    public:
        void post(std::function<void()> message) const {
            const std::scoped_lock lock(m_state->mutex);
            // The analyzer takes what QMetaObject::invokeMethod allocates for lost, inside the toolkit.
            if (m_state->receiver != nullptr)
                QTimer::singleShot(0, m_state->receiver, std::move(message));
        }

    private:
        friend class Mailbox;
        struct State {
            std::mutex mutex;
            QObject* receiver;
        };
        std::shared_ptr<State> m_state = std::make_shared<State>();
    };

    /// Belongs into `receiver`, as a member.
    explicit Mailbox(QObject* receiver) { m_address.m_state->receiver = receiver; }
    Mailbox(const Mailbox&) = delete;
    Mailbox& operator=(const Mailbox&) = delete;
    ~Mailbox() {
        const std::scoped_lock lock(m_address.m_state->mutex);
        m_address.m_state->receiver = nullptr;
    }

    const Address& address() const { return m_address; }

private:
    Address m_address;
};

} // namespace vantel
