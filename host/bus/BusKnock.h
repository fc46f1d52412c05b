#pragma once

#include <QDeadlineTimer>
#include <QString>
#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace vantel {

/// Where the session bus listens: `DBUS_SESSION_BUS_ADDRESS`, else the user's runtime folder; empty for
/// nowhere.
QString sessionBusAddress();

/// Where the system bus listens: `DBUS_SYSTEM_BUS_ADDRESS`, else the usual place.
QString systemBusAddress();

/// The socket file of a bus, the first one that its address names; absent where it has none, as an abstract
/// socket or a port.
std::optional<std::string> busSocket(const QString& address);

/// A knock at the door of a bus, to hear whether anybody is at home: whoever connects to a bus waits for it
/// without end. Knocking itself takes no time, and the answer comes while the program does something else.
class BusKnock {
public:
    enum class Answer {
        heard,   ///< the bus speaks
        silence, ///< the door is open, and nobody says anything
        hungUp,  ///< the door was shut again
        nobody,  ///< nobody listens at the only place that the address names
        noDoor   ///< there is no file to knock at, or a place besides it: only connecting tells
    };

    /// A bus that is well answers within a millisecond.
    static constexpr std::chrono::milliseconds defaultPatience{1500};

    /// Knocks. Implicit, since an address is all that it takes to ask for a bus.
    BusKnock(QString address, std::chrono::milliseconds patience = defaultPatience);
    BusKnock(const BusKnock&) = delete;
    BusKnock(BusKnock&&) noexcept;
    BusKnock& operator=(const BusKnock&) = delete;
    BusKnock& operator=(BusKnock&&) noexcept;
    ~BusKnock();

    /// Waits for the answer, no longer than the patience since the knock. Silence may end later; any other
    /// answer is the last, and leaves nobody at the door.
    Answer answer();

    const QString& address() const { return m_address; }

    /// What becomes readable when silence ends; -1 where nothing does, since too many others wait.
    int descriptor() const;

private:
    class Door;

    QString m_address;
    QDeadlineTimer m_end;
    std::unique_ptr<const Door> m_door; ///< while there is silence
    Answer m_answer = Answer::noDoor;
};

} // namespace vantel
