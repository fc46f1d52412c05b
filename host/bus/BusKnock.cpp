#include "host/bus/BusKnock.h"

#include <QStringList>
#include <cerrno>
#include <string_view>
#include <utility>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace vantel {

namespace {

/// Asks in which ways one may prove who one is. Every bus answers that, and remembers nothing of who asked.
constexpr std::string_view question("\0AUTH\r\n", 7);

bool connectTo(const std::string& path, int descriptor) {
    sockaddr_un address{};
    if (path.size() >= sizeof address.sun_path) {
        errno = ENAMETOOLONG;
        return false;
    }
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return ::connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

} // namespace

QString sessionBusAddress() {
    QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!address.isEmpty() || folder.isEmpty())
        return address;
    return QStringLiteral("unix:path=") + folder + QStringLiteral("/bus");
}

QString systemBusAddress() {
    const QString address = qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS");
    return address.isEmpty() ? QStringLiteral("unix:path=/run/dbus/system_bus_socket") : address;
}

std::optional<std::string> busSocket(const QString& address) {
    const QString prefix = QStringLiteral("unix:");
    const QString key = QStringLiteral("path=");
    for (const QString& each : address.split(u';')) {
        if (!each.startsWith(prefix))
            continue;
        for (const QString& part : each.mid(prefix.size()).split(u','))
            if (part.startsWith(key))
                return QByteArray::fromPercentEncoding(part.mid(key.size()).toUtf8()).toStdString();
    }
    return std::nullopt;
}

class BusKnock::Door {
public:
    explicit Door(const std::string& path)
        : m_descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0))
        , m_isOpen(connectTo(path, m_descriptor))
        , m_isCrowded(!m_isOpen && errno == EAGAIN) {
        if (m_isOpen)
            ::send(m_descriptor, question.data(), question.size(), MSG_NOSIGNAL);
    }
    Door(const Door&) = delete;
    Door& operator=(const Door&) = delete;
    ~Door() {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }

    bool isThere() const { return m_isOpen || m_isCrowded; }
    int descriptor() const { return m_isOpen ? m_descriptor : -1; }

    bool hasAnswer(int milliseconds) const {
        pollfd door{m_descriptor, POLLIN, 0};
        return m_isOpen && ::poll(&door, 1, milliseconds) > 0;
    }

    bool hasWords() const {
        char first = 0;
        return ::recv(m_descriptor, &first, 1, 0) == 1;
    }

private:
    int m_descriptor;
    bool m_isOpen;
    bool m_isCrowded; ///< as with a bus that has opened nobody's door for long
};

BusKnock::BusKnock(QString address, std::chrono::milliseconds patience)
    : m_address(std::move(address))
    , m_end(patience) {
    const auto socket = busSocket(m_address);
    if (!socket)
        return;
    auto door = std::make_unique<const Door>(*socket);
    if (door->isThere()) {
        m_door = std::move(door);
        m_answer = Answer::silence;
    } else if (!m_address.contains(u';')) {
        m_answer = Answer::nobody;
    }
}

BusKnock::BusKnock(BusKnock&&) noexcept = default;
BusKnock& BusKnock::operator=(BusKnock&&) noexcept = default;
BusKnock::~BusKnock() = default;

BusKnock::Answer BusKnock::answer() {
    if (!m_door || !m_door->hasAnswer(static_cast<int>(m_end.remainingTime())))
        return m_answer;
    m_answer = m_door->hasWords() ? Answer::heard : Answer::hungUp;
    m_door.reset();
    return m_answer;
}

int BusKnock::descriptor() const {
    return m_door ? m_door->descriptor() : -1;
}

} // namespace vantel
