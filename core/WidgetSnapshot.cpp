#include "core/WidgetSnapshot.h"

#include "core/WidgetShared.h"
#include "core/WidgetSnapshotStore.h"

namespace vantel {

namespace {

Result<WidgetSnapshotStore> sharedStore() {
    const auto snapshot = WidgetShared::snapshotURL();
    const auto lock = WidgetShared::snapshotLockURL();
    if (!snapshot || !lock)
        return std::unexpected(fileWriteUnknown());
    return WidgetSnapshotStore{*snapshot, *lock};
}

} // namespace

WidgetSnapshot WidgetSnapshot::applyingCompletion(std::string_view of, Instant at) const {
    WidgetSnapshot result = *this;
    for (WidgetTask& task : result.tasks)
        if (task.id == of)
            task.completedAt = at;
    return result;
}

std::optional<WidgetSnapshot> WidgetSnapshot::load() {
    const auto store = sharedStore();
    return store ? store->load() : std::nullopt;
}

Result<void> WidgetSnapshot::write() const {
    const auto store = sharedStore();
    if (!store)
        return std::unexpected(store.error());
    return store->write(*this);
}

Result<void> WidgetSnapshot::remove() {
    const auto store = sharedStore();
    if (!store)
        return std::unexpected(store.error());
    return store->remove();
}

Result<bool> WidgetSnapshot::remove(std::string_view matchingAccountID, bool allowingLegacyUnbound) {
    const auto store = sharedStore();
    if (!store)
        return std::unexpected(store.error());
    return store->remove(matchingAccountID, allowingLegacyUnbound);
}

Result<bool> WidgetSnapshot::applyCompletion(std::string_view of, Instant at,
                                             std::string_view matchingAccountID) {
    const auto store = sharedStore();
    if (!store)
        return std::unexpected(store.error());
    return store->applyCompletion(of, at, matchingAccountID);
}

} // namespace vantel
