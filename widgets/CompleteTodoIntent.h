#pragma once

#include "hosting/Intent.h"
#include "platform/TextKey.h"

namespace vantel {

/// One parameter of an intent: its title (a text key) and its value, once it has one.
struct IntentParameter {
    const char* title;
    std::optional<std::string> value = std::nullopt;

    bool operator==(const IntentParameter&) const = default;
};

/// Completes a task: journals the completion for the companion application, then stamps the shared snapshot,
/// so that the widgets show it at once.
struct CompleteTodoIntent {
    static constexpr const char* name = "CompleteTodoIntent";
    static constexpr const char* title = textKey("Complete task");
    static constexpr bool isDiscoverable = false; ///< it exists for the widgets' buttons only

    IntentParameter todoID{textKey("Task id")};
    IntentParameter accountID{textKey("Account id")};

    CompleteTodoIntent() = default;
    CompleteTodoIntent(std::string todoIDValue, std::string accountIDValue);

    /// Runs once: one journal line, and the same instant in the journal and in the snapshot. Fails, with
    /// nothing stamped, when the line cannot be written; whatever goes wrong after that, the completion is
    /// safe in the journal and the run succeeds. Blocks on the two locks, one after the other.
    Result<void> perform(const IntentContext& context) const;

    /// The intent as a button carries it.
    IntentCall call() const;

    /// What a bundle declares.
    static IntentDeclaration declaration();

    bool operator==(const CompleteTodoIntent&) const = default;
};

} // namespace vantel
