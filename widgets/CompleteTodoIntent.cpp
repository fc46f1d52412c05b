#include "widgets/CompleteTodoIntent.h"

#include "core/WidgetJournal.h"
#include "core/WidgetSnapshot.h"

namespace vantel {

CompleteTodoIntent::CompleteTodoIntent(std::string todoIDValue, std::string accountIDValue) {
    todoID.value = std::move(todoIDValue);
    accountID.value = std::move(accountIDValue);
}

Result<void> CompleteTodoIntent::perform(const IntentContext& context) const {
    const Instant now = context.clock.now();
    const WidgetJournalEntry entry{.id = context.identifiers.next(),
                                   .accountID = accountID.value.value_or(""),
                                   .action = WidgetJournalEntry::Action::completeTodo,
                                   .todoID = todoID.value.value_or(""),
                                   .at = now};
    if (auto appended = WidgetJournal::append(entry); !appended)
        return appended;
    std::ignore = WidgetSnapshot::applyCompletion(entry.todoID, now, entry.accountID);
    return {};
}

IntentCall CompleteTodoIntent::call() const {
    return {name, {{"todoID", todoID.value.value_or("")}, {"accountID", accountID.value.value_or("")}}};
}

IntentDeclaration CompleteTodoIntent::declaration() {
    const auto perform = [](const IntentCall& call, const IntentContext& context) {
        CompleteTodoIntent intent;
        intent.todoID.value = call.parameter("todoID");
        intent.accountID.value = call.parameter("accountID");
        return intent.perform(context);
    };
    return {name, title, isDiscoverable, perform};
}

} // namespace vantel
