#pragma once

#include "host/bus/MessageBus.h"
#include "platform/Formats.h"
#include "platform/Url.h"

#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <functional>
#include <map>

namespace vantel {

/// How links leave the program; the parts that a test puts its own in place of.
struct LinkDoors {
    /// Whether an application opens links of a scheme. Inside a sandbox nobody can tell: then the portal
    /// decides.
    std::function<bool(const QString& scheme)> hasHandler;
    /// Starts a program that goes on by itself. Whether it started.
    std::function<bool(const QString& program, const QStringList& arguments)> startDetached;

    /// The doors of the desktop.
    static LinkDoors ofTheDesktop();
};

/// Opens the links of one scheme in the application that handles them: through the desktop's portal, else
/// with xdg-open. Never through a shell, and never any other link.
class LinkOpener final : public QObject {
    Q_OBJECT

public:
    /// `bus` and `formats` live longer.
    LinkOpener(MessageBus& bus, const Formats& formats, std::string scheme,
               LinkDoors doors = LinkDoors::ofTheDesktop(), QObject* parent = nullptr);

    /// Gets why a link was not opened, as a sentence for the user.
    using Failed = std::function<void(const QString& sentence)>;

    /// Returns at once. What goes wrong is told at most once, possibly inside this call.
    void open(const Url& url, Failed failed);

private:
    void askPortal(const QString& url, Failed failed);
    void takeReply(const QString& url, const QString& request, const QDBusMessage& reply);
    Q_SLOT void takeResponse(uint code, const QVariantMap& results, const QDBusMessage& message);
    void heedResponses();
    Failed forget(const QString& request);
    void startOpener(const QString& url, const Failed& failed);
    void fail(const Failed& failed, const char* sentenceKey) const;

    MessageBus& m_bus;
    const Formats& m_formats;
    std::string m_scheme;
    LinkDoors m_doors;
    int m_requests = 0;                ///< how many the portal was asked
    QString m_heeded;                  ///< the connection on which responses are heard
    std::map<QString, Failed> m_asked; ///< requests that the portal has not answered, by their paths
};

} // namespace vantel
