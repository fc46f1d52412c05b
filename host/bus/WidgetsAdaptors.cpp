#include "host/bus/WidgetsAdaptors.h"

#include "host/bus/WidgetsService.h"

namespace vantel {

namespace {

QString activationToken(const QVariantMap& platformData) {
    return platformData.value(QStringLiteral("activation-token")).toString();
}

} // namespace

ApplicationAdaptor::ApplicationAdaptor(WidgetsService& service, QObject* exported)
    : QDBusAbstractAdaptor(exported)
    , m_service(service) {}

void ApplicationAdaptor::Activate(const QVariantMap& platformData) {
    Q_EMIT m_service.activated(activationToken(platformData));
}

void ApplicationAdaptor::Open(const QStringList&, const QVariantMap& platformData) {
    Q_EMIT m_service.activated(activationToken(platformData));
}

void ApplicationAdaptor::ActivateAction(const QString& name, const QVariantList&,
                                        const QVariantMap& platformData) {
    Q_EMIT m_service.actionRequested(name, activationToken(platformData));
}

WidgetsAdaptor::WidgetsAdaptor(WidgetsService& service, QObject* exported)
    : QDBusAbstractAdaptor(exported)
    , m_service(service) {}

void WidgetsAdaptor::ReloadTimelines(const QString& kind) {
    Q_EMIT m_service.reloadRequested(kind.toStdString());
}

void WidgetsAdaptor::ReloadAllTimelines() {
    Q_EMIT m_service.reloadAllRequested();
}

QList<WidgetConfiguration> WidgetsAdaptor::CurrentConfigurations() const {
    return m_service.configurations();
}

void WidgetsAdaptor::ShowGallery() {
    Q_EMIT m_service.galleryRequested();
}

void WidgetsAdaptor::FocusWidgets() {
    Q_EMIT m_service.focusRequested();
}

} // namespace vantel
