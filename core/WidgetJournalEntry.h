#pragma once

#include "platform/Error.h"
#include "platform/Instant.h"
#include "platform/Uuid.h"

#include <optional>
#include <string>
#include <string_view>

namespace vantel {

/// One thing that the user did in a widget, for the companion application to carry out.
struct WidgetJournalEntry {
    enum class Action { completeTodo };

    Uuid id;               ///< names the entry when it has been handled
    std::string accountID; ///< empty for an entry that is bound to no account
    Action action;
    std::string todoID;
    Instant at; ///< when the user acted

    bool operator==(const WidgetJournalEntry&) const = default;

    /// Whether the entry is for an account; one that is bound to none is for any account when that is
    /// allowed.
    bool belongs(std::string_view to, bool allowingLegacyUnbound) const;
};

/// The action as journals spell it.
std::string_view rawValue(WidgetJournalEntry::Action action);

/// The action of exactly that spelling; nothing for any other text.
std::optional<WidgetJournalEntry::Action> journalAction(std::string_view rawValue);

/// One line of the journal, without its line feed. Fails for an instant that is not finite and for a text
/// that is not UTF-8.
Result<std::string> encodeJournalEntry(const WidgetJournalEntry& entry);

/// Reads one line. "accountID" may be missing, as in lines written before entries were bound to an account.
Result<WidgetJournalEntry> decodeJournalEntry(std::string_view line);

} // namespace vantel
