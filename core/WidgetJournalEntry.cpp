#include "core/WidgetJournalEntry.h"

#include "platform/JsonDocument.h"
#include "platform/JsonWriter.h"

namespace vantel {

bool WidgetJournalEntry::belongs(std::string_view to, bool allowingLegacyUnbound) const {
    return accountID.empty() ? allowingLegacyUnbound : accountID == to;
}

std::string_view rawValue(WidgetJournalEntry::Action) {
    return "completeTodo";
}

std::optional<WidgetJournalEntry::Action> journalAction(std::string_view rawValue) {
    if (rawValue != "completeTodo")
        return std::nullopt;
    return WidgetJournalEntry::Action::completeTodo;
}

Result<std::string> encodeJournalEntry(const WidgetJournalEntry& entry) {
    JsonWriter json;
    json.beginObject();
    json.field("id", text(entry.id));
    json.field("accountID", entry.accountID);
    json.field("action", rawValue(entry.action));
    json.field("todoID", entry.todoID);
    json.field("at", entry.at);
    json.endObject();
    return json.finish();
}

Result<WidgetJournalEntry> decodeJournalEntry(std::string_view line) {
    JsonDocument document;
    auto object = document.parseObject(line);
    if (!object)
        return std::unexpected(object.error());
    WidgetJournalEntry entry{.id = object->parsedText("id", parseUuid, "not a UUID"),
                             .accountID = object->optionalText("accountID").value_or(""),
                             .action = object->parsedText("action", journalAction, "not a known action"),
                             .todoID = object->text("todoID"),
                             .at = object->instant("at")};
    if (object->failure())
        return std::unexpected(*object->failure());
    return entry;
}

} // namespace vantel
