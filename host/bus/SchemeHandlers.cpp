#include "host/bus/SchemeHandlers.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace vantel {

using namespace Qt::StringLiterals;

namespace {

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
            names.append(desktop + u"-mimeapps.list"_s);
    names.append(u"mimeapps.list"_s);
    QStringList paths;
    for (const QString& folder : folders.configuration)
        for (const QString& name : names)
            paths.append(folder + u'/' + name);
    for (const QString& folder : folders.data)
        for (const QString& name : names + QStringList{u"mimeinfo.cache"_s})
            paths.append(folder + u"/applications/"_s + name);
    return paths;
}

/// Where an entry lies below a folder; empty for nowhere. Each dash of its name may stand for a subfolder.
QString pathOf(const QString& entry, const QString& folder) {
    QString path = folder + u'/' + entry;
    if (QFile::exists(path))
        return path;
    for (qsizetype dash = entry.indexOf(u'-', 1); dash > 0; dash = entry.indexOf(u'-', dash + 1)) {
        const QString nested = folder + u'/' + entry.left(dash);
        const bool isFolder = !entry.startsWith(u'.') && QFileInfo(nested).isDir();
        if (const QString found = isFolder ? pathOf(entry.mid(dash + 1), nested) : QString();
            !found.isEmpty())
            return found;
    }
    return {};
}

/// An entry that says so counts as not installed, and hides one of the same name that lies farther away.
bool isHidden(const QString& path) {
    QString group;
    for (const QString& line : linesOf(path)) {
        if (line.startsWith(u'['))
            group = line.trimmed();
        else if (group == u"[Desktop Entry]"_s && line.section(u'=', 0, 0).trimmed() == u"Hidden"_s)
            return line.section(u'=', 1).trimmed() == u"true"_s;
    }
    return false;
}

bool isInstalled(const QString& entry, const ApplicationFolders& folders) {
    if (!entry.endsWith(u".desktop"_s) || entry.contains(u'/'))
        return false;
    for (const QString& folder : folders.data)
        if (const QString path = pathOf(entry, folder + u"/applications"_s); !path.isEmpty())
            return !isHidden(path);
    return false;
}

/// What a list says of a type.
struct Associations {
    QStringList given;
    QStringList removed; ///< from every list that is farther away
};

Associations associationsOf(const QString& type, const QStringList& lines) {
    Associations found;
    QString group;
    for (const QString& line : lines) {
        if (line.startsWith(u'['))
            group = line.trimmed();
        else if (line.startsWith(type + u'='))
            (group == u"[Removed Associations]"_s ? found.removed : found.given) +=
                line.mid(type.size() + 1).trimmed().split(u';', Qt::SkipEmptyParts);
    }
    return found;
}

} // namespace

ApplicationFolders ApplicationFolders::current() {
    return {QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation),
            QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)};
}

bool hasSchemeHandler(const QString& scheme, const ApplicationFolders& folders) {
    const QString type = u"x-scheme-handler/"_s + scheme;
    QStringList removed;
    for (const QString& path : lists(folders)) {
        const Associations found = associationsOf(type, linesOf(path));
        for (const QString& entry : found.given)
            if (!removed.contains(entry) && isInstalled(entry, folders))
                return true;
        removed += found.removed;
    }
    return false;
}

} // namespace vantel
