#include "host/bus/SchemeHandlers.h"

#include <QFile>
#include <QStandardPaths>
#include <algorithm>

namespace vantel {

namespace {

const QString applications = u"/applications/"_qs;

QStringList linesOf(const QString& path) {
    constexpr qint64 mostBytes = 4'000'000;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.read(mostBytes)).split(u'\n');
}

/// The files that may name a handler, and the desktop's own ones before the common ones.
QStringList lists(const ApplicationFolders& folders) {
    QStringList names;
    for (const QString& desktop : qEnvironmentVariable("XDG_CURRENT_DESKTOP").toLower().split(u':'))
        if (!desktop.isEmpty() && !desktop.contains(u'/'))
            names.append(desktop + u"-mimeapps.list"_qs);
    names.append(u"mimeapps.list"_qs);
    QStringList paths;
    for (const QString& folder : folders.configuration)
        for (const QString& name : names)
            paths.append(folder + u'/' + name);
    for (const QString& folder : folders.data)
        for (const QString& name : names + QStringList{u"mimeinfo.cache"_qs})
            paths.append(folder + applications + name);
    return paths;
}

/// An entry in a subfolder has the folder's name and a dash before its own.
bool isInstalled(const QString& entry, const ApplicationFolders& folders) {
    if (!entry.endsWith(u".desktop"_qs) || entry.contains(u'/'))
        return false;
    QString nested = entry;
    const qsizetype dash = nested.indexOf(u'-');
    if (dash > 0)
        nested[dash] = u'/';
    return std::ranges::any_of(folders.data, [&](const QString& folder) {
        return QFile::exists(folder + applications + entry) || QFile::exists(folder + applications + nested);
    });
}

/// The entries that the lines of a list give for a type, except those that it takes away.
QStringList entriesFor(const QString& type, const QStringList& lines) {
    QStringList entries;
    QString group;
    for (const QString& line : lines) {
        if (line.startsWith(u'['))
            group = line.trimmed();
        else if (line.startsWith(type + u'=') && group != u"[Removed Associations]"_qs)
            entries += line.mid(type.size() + 1).trimmed().split(u';', Qt::SkipEmptyParts);
    }
    return entries;
}

} // namespace

ApplicationFolders ApplicationFolders::current() {
    return {QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation),
            QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)};
}

bool hasSchemeHandler(const QString& scheme, const ApplicationFolders& folders) {
    const QString type = u"x-scheme-handler/"_qs + scheme;
    return std::ranges::any_of(lists(folders), [&](const QString& path) {
        return std::ranges::any_of(entriesFor(type, linesOf(path)),
                                   [&](const QString& entry) { return isInstalled(entry, folders); });
    });
}

} // namespace vantel
