#pragma once

#include "host/bus/SessionBus.h"
#include "platform/Formats.h"
#include "platform/Url.h"

#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <functional>

namespace vantel {

/// How links leave the program; the parts that a test puts its own in place of.
struct LinkDoors {
    /// Whether an application opens this system's links. Inside a sandbox nobody can tell: then the portal
    /// decides.
    std::function<bool()> hasHandler;
    /// Starts a program that goes on by itself. Whether it started.
    std::function<bool(const QString& program, const QStringList& arguments)> startDetached;

    /// The doors of the desktop.
    static LinkDoors ofTheDesktop();
};

/// Opens this system's links in the application that handles them: through the desktop's portal, else with
/// xdg-open. Never through a shell, and never any other link.
class LinkOpener final : public QObject {
    Q_OBJECT

public:
    /// `bus` and `formats` live longer.
    LinkOpener(SessionBus& bus, const Formats& formats, LinkDoors doors = LinkDoors::ofTheDesktop(),
               QObject* parent = nullptr);

    /// Returns at once. What goes wrong is told by `failed`, possibly inside this call.
    void open(const Url& url);

Q_SIGNALS:
    /// Why the last link was not opened, as a sentence for the user.
    void failed(const QString& sentence);

private:
    void askPortal(const QString& url);
    void takeReply(const QString& url, const QString& request, const QDBusMessage& reply);
    Q_SLOT void takeResponse(uint code, const QVariantMap& results, const QDBusMessage& message);
    void heed(const QString& request);
    void forget(const QString& request);
    void startOpener(const QString& url);
    void fail(const char* sentenceKey);

    SessionBus& m_bus;
    const Formats& m_formats;
    LinkDoors m_doors;
    int m_requests = 0; ///< how many the portal was asked
};

/// Whether a link is one of this system's.
bool isOwnLink(const Url& url);

} // namespace vantel
