#pragma once

#include <QDBusArgument>
#include <QList>
#include <QString>

namespace vantel {

/// A placed widget as the bus tells of it: its kind, and its family by its full name.
struct WidgetConfiguration {
    QString kind;
    QString family;

    bool operator==(const WidgetConfiguration&) const = default;
};

using WidgetConfigurations = QList<WidgetConfiguration>;

inline QDBusArgument& operator<<(QDBusArgument& argument, const WidgetConfiguration& configuration) {
    argument.beginStructure();
    argument << configuration.kind << configuration.family;
    argument.endStructure();
    return argument;
}

inline const QDBusArgument& operator>>(const QDBusArgument& argument, WidgetConfiguration& configuration) {
    argument.beginStructure();
    argument >> configuration.kind >> configuration.family;
    argument.endStructure();
    return argument; // NOLINT(bugprone-return-const-ref-from-parameter): as the bus library asks for it
}

} // namespace vantel
