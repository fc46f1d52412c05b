#include "cli/Answer.h"
#include "cli/Commands.h"
#include "core/WidgetSnapshot.h"
#include "platform/VisibleText.h"
#include "widgets/CompleteTodoIntent.h"

namespace vantel::commands {

CommandResult complete(const Arguments& arguments, const Surroundings& surroundings) {
    SystemUuidSource identifiers;
    const CompleteTodoIntent intent(arguments.todoID, arguments.accountID.value_or(""));
    if (auto performed = intent.perform({surroundings.clock, identifiers}); !performed)
        return failed("complete", performed.error());
    return done(arguments.form, "Completed " + visibleText(arguments.todoID) + ".\n");
}

CommandResult snapshotComplete(const Arguments& arguments, const Surroundings& surroundings) {
    const auto applied = WidgetSnapshot::applyCompletion(arguments.todoID, surroundings.clock.now(),
                                                         arguments.accountID.value_or(""));
    if (!applied)
        return failed("snapshot complete", applied.error());
    const std::string text =
        *applied ? "The snapshot was stamped.\n" : "The snapshot is not this account's.\n";
    return answer(arguments.form, text, [&](JsonWriter& json) {
        json.beginObject();
        json.field("applied", *applied);
        json.endObject();
    });
}

} // namespace vantel::commands
