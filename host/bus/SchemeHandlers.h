#pragma once

#include <QString>
#include <QStringList>

namespace vantel {

/// Where a desktop writes down which application opens what, the nearest first.
struct ApplicationFolders {
    QStringList configuration; ///< hold mimeapps.list
    QStringList data;          ///< hold applications/

    /// Those of the environment.
    static ApplicationFolders current();
};

/// Whether an installed application opens links of a scheme: a list of applications, or the cache of what
/// they say of themselves, names one whose desktop entry exists and is not hidden. A list that takes an
/// application away does so for those that are farther away. Reads a few small files.
bool hasSchemeHandler(const QString& scheme, const ApplicationFolders& folders);

} // namespace vantel
