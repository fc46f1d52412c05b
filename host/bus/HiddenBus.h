#pragma once

#include <QByteArray>

namespace vantel {

/// Keeps the toolkit off a session bus that does not answer, for which it would wait in the window thread
/// without end: it looks for one on behalf of screen readers, and of some desktops. Lives around the making
/// of the application object. The toolkit then knows no session bus for as long as the program runs, while
/// the environment, which other programs inherit, is as before.
class HiddenBus {
public:
    HiddenBus();
    HiddenBus(const HiddenBus&) = delete;
    HiddenBus& operator=(const HiddenBus&) = delete;
    ~HiddenBus();

private:
    bool m_wasNamed;
    QByteArray m_address;
};

} // namespace vantel
