#include "cli/Answer.h"
#include "cli/Commands.h"
#include "cli/SnapshotSource.h"
#include "core/SnapshotDocument.h"

namespace vantel::commands {

CommandResult snapshotShow(const Arguments& arguments, const Surroundings& surroundings) {
    const auto snapshot = requestedSnapshot(arguments, surroundings);
    if (!snapshot)
        return std::unexpected(snapshot.error());
    if (!*snapshot)
        return failed("snapshot show", "there is no valid snapshot");
    return documentAnswer(encodeSnapshot(**snapshot));
}

CommandResult snapshotDecode(const Arguments& arguments, const Surroundings&) {
    const auto snapshot = decodeInput(arguments.file);
    if (!snapshot)
        return std::unexpected(snapshot.error());
    return documentAnswer(encodeSnapshot(*snapshot));
}

CommandResult snapshotWrite(const Arguments& arguments, const Surroundings&) {
    const auto snapshot = decodeInput(arguments.file);
    if (!snapshot)
        return std::unexpected(snapshot.error());
    if (auto written = snapshot->write(); !written)
        return failed("snapshot write", written.error());
    return done(arguments.form, "The snapshot was stored.\n");
}

CommandResult snapshotRemove(const Arguments& arguments, const Surroundings&) {
    Result<bool> removed = true;
    if (arguments.accountID)
        removed = WidgetSnapshot::remove(*arguments.accountID, arguments.allowsLegacyUnbound);
    else if (auto plain = WidgetSnapshot::remove(); !plain)
        removed = std::unexpected(plain.error());
    if (!removed)
        return failed("snapshot remove", removed.error());
    const std::string text =
        *removed ? "The snapshot was removed.\n" : "There is no snapshot of this account.\n";
    return answer(arguments.form, text, [&](JsonWriter& json) {
        json.beginObject();
        json.field("removed", *removed);
        json.endObject();
    });
}

CommandResult snapshotPlaceholder(const Arguments&, const Surroundings& surroundings) {
    return documentAnswer(
        encodeSnapshot(WidgetSnapshot::placeholder(surroundings.clock.now(), surroundings.calendar)));
}

} // namespace vantel::commands
