#include "core/WidgetSnapshotStore.h"

#include "core/SnapshotDocument.h"
#include "core/WidgetShared.h"
#include "platform/DataFile.h"

namespace vantel {

using WidgetShared::withLockedFile;

std::optional<WidgetSnapshot> WidgetSnapshotStore::load(FileSystem& files) const {
    const auto loading = [&](FileHandle&) -> Result<std::optional<WidgetSnapshot>> {
        return loadUnlocked(files);
    };
    return withLockedFile(lockURL, loading, files).value_or(std::nullopt);
}

Result<void> WidgetSnapshotStore::write(const WidgetSnapshot& snapshot, FileSystem& files) const {
    return withLockedFile(lockURL, [&](FileHandle&) { return writeUnlocked(snapshot, files); }, files);
}

Result<void> WidgetSnapshotStore::remove(FileSystem& files) const {
    return withLockedFile(lockURL, [&](FileHandle&) { return removeUnlocked(files); }, files);
}

Result<bool> WidgetSnapshotStore::remove(std::string_view matchingAccountID, bool allowingLegacyUnbound,
                                         FileSystem& files) const {
    const auto removing = [&](FileHandle&) -> Result<bool> {
        const auto snapshot = loadUnlocked(files);
        if (!snapshot)
            return false;
        const bool isUnbound = snapshot->accountID.empty() && allowingLegacyUnbound;
        if (snapshot->accountID != matchingAccountID && !isUnbound)
            return false;
        if (auto removed = removeUnlocked(files); !removed)
            return std::unexpected(removed.error());
        return true;
    };
    return withLockedFile(lockURL, removing, files);
}

Result<bool> WidgetSnapshotStore::applyCompletion(std::string_view of, Instant at,
                                                  std::string_view matchingAccountID,
                                                  FileSystem& files) const {
    const auto stamping = [&](FileHandle&) -> Result<bool> {
        const auto snapshot = loadUnlocked(files);
        if (!snapshot || snapshot->accountID != matchingAccountID)
            return false;
        if (auto written = writeUnlocked(snapshot->applyingCompletion(of, at), files); !written)
            return std::unexpected(written.error());
        return true;
    };
    return withLockedFile(lockURL, stamping, files);
}

std::optional<WidgetSnapshot> WidgetSnapshotStore::loadUnlocked(FileSystem& files) const {
    const auto bytes = readFile(snapshotURL, files);
    if (!bytes)
        return std::nullopt;
    auto snapshot = decodeSnapshot(*bytes);
    if (!snapshot || snapshot->version != WidgetSnapshot::currentVersion)
        return std::nullopt;
    return std::move(*snapshot);
}

Result<void> WidgetSnapshotStore::writeUnlocked(const WidgetSnapshot& snapshot, FileSystem& files) const {
    if (auto made = files.createDirectories(snapshotURL.parent_path()); !made)
        return made;
    const auto bytes = encodeSnapshot(snapshot);
    if (!bytes)
        return std::unexpected(bytes.error());
    sweepTemporaries(snapshotURL, files);
    return writeFileAtomically(snapshotURL, *bytes, files);
}

Result<void> WidgetSnapshotStore::removeUnlocked(FileSystem& files) const {
    const auto present = statusIfPresent(snapshotURL, files);
    if (!present)
        return std::unexpected(present.error());
    if (!*present)
        return {};
    if (auto removed = files.remove(snapshotURL); !removed)
        return removed;
    std::ignore = syncDirectory(snapshotURL.parent_path(), files);
    return {};
}

} // namespace vantel
