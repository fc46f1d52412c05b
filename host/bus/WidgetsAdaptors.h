#pragma once

#include "host/bus/WidgetConfiguration.h"

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantMap>

namespace vantel {

class WidgetsService;

/// The doors of the service, and all that the bus can reach. The bus library checks the types of arguments;
/// their values are strangers'.
///
/// Members of the bus begin with a capital letter. NOLINTBEGIN(readability-identifier-naming)

/// What a desktop calls to start the program, or to bring it forward.
class ApplicationAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    ApplicationAdaptor(WidgetsService& service, QObject* exported);

    Q_SLOT void Activate(const QVariantMap& platformData);
    Q_SLOT void Open(const QStringList& uris, const QVariantMap& platformData); ///< no file is ever opened
    Q_SLOT void ActivateAction(const QString& name, const QVariantList& parameter,
                               const QVariantMap& platformData);

private:
    WidgetsService& m_service;
};

/// What companions, scripts and `vantelctl` call.
class WidgetsAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.vantel.Widgets1")

public:
    WidgetsAdaptor(WidgetsService& service, QObject* exported);

    Q_SLOT void ReloadTimelines(const QString& kind);
    Q_SLOT void ReloadAllTimelines();
    Q_SLOT QList<vantel::WidgetConfiguration> CurrentConfigurations() const;
    Q_SLOT void ShowGallery();
    Q_SLOT void FocusWidgets();

private:
    WidgetsService& m_service;
};

// NOLINTEND(readability-identifier-naming)

} // namespace vantel
