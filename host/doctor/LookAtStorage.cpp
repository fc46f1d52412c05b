#include "core/SnapshotDocument.h"
#include "core/WidgetShared.h"
#include "host/desk/PlacementStore.h"
#include "host/doctor/LookAround.h"
#include "platform/Clock.h"
#include "platform/DataFile.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vantel {

namespace {

constexpr unsigned othersMayLookInside = 0055;
constexpr unsigned othersMayPass = 0011;

FileFacts::Kind kindOf(unsigned mode) {
    if (S_ISREG(mode))
        return FileFacts::Kind::regular;
    return S_ISDIR(mode) ? FileFacts::Kind::directory : FileFacts::Kind::other;
}

bool mayI(const FileURL& path, int access) {
    return ::faccessat(AT_FDCWD, path.c_str(), access, AT_EACCESS) == 0;
}

FileFacts fileFacts(const FileURL& path) {
    struct stat status{};
    if (::stat(path.c_str(), &status) != 0)
        return {.path = path, .kind = errno == ENOENT ? FileFacts::Kind::missing : FileFacts::Kind::unknown};
    const bool isFolder = S_ISDIR(status.st_mode);
    return {.path = path,
            .kind = kindOf(status.st_mode),
            .mode = status.st_mode & 07777U,
            .owner = status.st_uid,
            .isMine = status.st_uid == ::geteuid(),
            .isReadable = mayI(path, isFolder ? R_OK | X_OK : R_OK),
            .isWritable = mayI(path, W_OK)};
}

/// Every folder on the way has to let others pass.
bool isReachable(const FileFacts& folder) {
    if ((folder.mode & othersMayLookInside) == 0)
        return false;
    for (FileURL path = folder.path.parent_path(); path.has_relative_path(); path = path.parent_path())
        if ((fileFacts(path).mode & othersMayPass) == 0)
            return false;
    return true;
}

Result<SnapshotHead> readHead(const FileURL& file) {
    const auto bytes = readFile(file, systemFileSystem());
    if (!bytes)
        return std::unexpected(bytes.error());
    const auto snapshot = decodeSnapshot(*bytes);
    if (!snapshot)
        return std::unexpected(snapshot.error());
    return SnapshotHead{.version = snapshot->version, .generatedAt = snapshot->generatedAt};
}

std::optional<ContainerFacts> lookAtContainer() {
    const auto folder = WidgetShared::containerURL();
    if (!folder)
        return std::nullopt;
    ContainerFacts facts{.folder = fileFacts(*folder),
                         .snapshot = fileFacts(*WidgetShared::snapshotURL()),
                         .snapshotLock = fileFacts(*WidgetShared::snapshotLockURL()),
                         .journal = fileFacts(*WidgetShared::journalURL()),
                         .snapshotLockState = lockFacts(*WidgetShared::snapshotLockURL()),
                         .journalLockState = lockFacts(*WidgetShared::journalURL())};
    facts.isReachable = isReachable(facts.folder);
    if (facts.snapshot.kind == FileFacts::Kind::regular)
        facts.head = readHead(facts.snapshot.path);
    return facts;
}

Result<std::size_t> countPlacements(const FileURL& file) {
    const auto bytes = readFile(file, systemFileSystem());
    if (!bytes)
        return std::unexpected(bytes.error());
    const auto placements = parsePlacements(*bytes);
    if (!placements)
        return std::unexpected(placements.error());
    return placements->size();
}

std::optional<PlacementsFacts> lookAtPlacements() {
    const auto folder = stateFolder();
    if (!folder)
        return std::nullopt;
    PlacementsFacts facts{.file = placementsFile(*folder)};
    if (fileFacts(facts.file).kind != FileFacts::Kind::missing)
        facts.count = countPlacements(facts.file);
    return facts;
}

} // namespace

StorageFacts lookAtStorage() {
    return {.now = SystemClock().now(), .container = lookAtContainer(), .placements = lookAtPlacements()};
}

} // namespace vantel
