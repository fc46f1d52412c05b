#pragma once

#include "platform/FileSystem.h"
#include "platform/LockedFile.h"

#include <concepts>
#include <optional>
#include <string>

/// The container that the companion application and the widgets share, and the lock that orders them.
namespace vantel::WidgetShared {

/// The scheme of the links that open the companion application.
inline constexpr std::string_view urlScheme = "vantel";

/// The container's identifier when the program's information dictionary names none.
inline constexpr std::string_view defaultAppGroupID = "group.org.vantel.widgets";

/// The identifier of the shared container: the text that the program's information dictionary holds under
/// "VantelAppGroupIdentifier", as it stands, else the default. Computed on first use and kept for the life of
/// the process.
const std::string& appGroupID();

/// The container's folder, and the three files in it. Found anew on each access; absent when the system gives
/// no container.
std::optional<FileURL> containerURL();
std::optional<FileURL> snapshotURL();
std::optional<FileURL> snapshotLockURL();
std::optional<FileURL> journalURL();

/// Runs `body` (a function of FileHandle& that gives a Result) while the file at `at` is locked, and hands
/// back what it gave. Makes the file and its folders when they are missing; never truncates, writes or
/// deletes the file itself. Waits without a time-out for any other holder, in this process too: never nest
/// two. The lock is released and the descriptor closed on every path.
template <typename Body>
    requires std::invocable<Body, FileHandle&>
std::invoke_result_t<Body, FileHandle&> withLockedFile(const FileURL& at, Body body,
                                                       FileSystem& files = systemFileSystem()) {
    auto locked = LockedFile::acquire(at, files);
    if (!locked)
        return std::unexpected(locked.error());
    FileHandle handle = locked->handle();
    return body(handle);
}

} // namespace vantel::WidgetShared
