#pragma once

#include "core/WidgetChip.h"
#include "core/WidgetEvent.h"
#include "core/WidgetHorizonItem.h"
#include "core/WidgetRecap.h"
#include "core/WidgetTask.h"
#include "platform/Calendar.h"
#include "platform/Error.h"

#include <vector>

namespace vantel {

/// The user's day as the companion application wrote it: the whole contract between the two.
///
/// The operations on the shared container wait for its lock without a time-out, so they belong off the thread
/// of a user interface. They read the environment to find the container.
struct WidgetSnapshot {
    static constexpr std::int64_t currentVersion = 1;

    std::int64_t version;
    std::string accountID; ///< empty for a document written before snapshots were bound to an account
    Instant generatedAt;
    std::optional<Instant> lastSyncAt{};
    std::vector<WidgetTask> tasks;
    std::int64_t triageCount;
    std::int64_t snoozedCount;
    std::vector<WidgetEvent> events;
    std::vector<WidgetChip> allDayChips;
    std::vector<WidgetHorizonItem> horizon;
    std::optional<WidgetRecap> recap{};

    bool operator==(const WidgetSnapshot&) const = default;

    /// Sample data for a gallery, as if it were `now`: every widget has something to show.
    static WidgetSnapshot placeholder(Instant now, const Calendar& calendar);

    /// A copy in which every task of that id is completed at `at`, whatever it was before. Nothing else
    /// changes.
    WidgetSnapshot applyingCompletion(std::string_view of, Instant at) const;

    /// The snapshot in the shared container. A missing, unreadable or invalid one, and one of another
    /// version, are all simply absent.
    static std::optional<WidgetSnapshot> load();

    /// Replaces the shared snapshot. Readers see the old one or the new one, whole.
    Result<void> write() const;

    /// Deletes the shared snapshot; fine when there is none.
    static Result<void> remove();

    /// Deletes the shared snapshot only if it belongs to the account, or to none when that is allowed.
    /// Whether it did.
    static Result<bool> remove(std::string_view matchingAccountID, bool allowingLegacyUnbound);

    /// Completes a task in the shared snapshot if that belongs to the account. Whether it does; a task that
    /// is not in it changes nothing.
    static Result<bool> applyCompletion(std::string_view of, Instant at, std::string_view matchingAccountID);
};

} // namespace vantel
