#include "cli/Answer.h"
#include "cli/Commands.h"
#include "core/WidgetJournal.h"
#include "platform/InstantText.h"
#include "platform/VisibleText.h"

namespace vantel::commands {

namespace {

std::string entryText(const WidgetJournalEntry& entry, const Calendar& calendar) {
    return localText(entry.at, calendar) + "  " + std::string(rawValue(entry.action)) + " " +
           visibleText(entry.todoID) + " (account " + visibleText(entry.accountID) + ")  " + text(entry.id) +
           "\n";
}

CommandResult listJson(const std::vector<WidgetJournalEntry>& entries) {
    std::string json = "[";
    for (const WidgetJournalEntry& entry : entries) {
        const auto line = encodeJournalEntry(entry);
        if (!line)
            return failed("journal list", line.error());
        json += (json.size() == 1 ? "" : ",") + *line;
    }
    return documentAnswer(json + "]");
}

} // namespace

CommandResult journalList(const Arguments& arguments, const Surroundings& surroundings) {
    const auto entries = WidgetJournal::pending();
    if (!entries)
        return failed("journal list", entries.error());
    if (arguments.form == OutputForm::json)
        return listJson(*entries);
    std::string lines;
    for (const WidgetJournalEntry& entry : *entries)
        lines += entryText(entry, surroundings.calendar);
    return lines.empty() ? "The journal is empty.\n" : lines;
}

CommandResult journalAppend(const Arguments& arguments, const Surroundings& surroundings) {
    const auto given = arguments.uuid ? parseUuid(*arguments.uuid) : randomUuid();
    if (!given)
        return wrongUsage("journal append", "\"" + *arguments.uuid + "\" is not a UUID");
    const WidgetJournalEntry entry{.id = *given,
                                   .accountID = arguments.accountID.value_or(""),
                                   .action = WidgetJournalEntry::Action::completeTodo,
                                   .todoID = arguments.todoID,
                                   .at = surroundings.clock.now()};
    if (auto appended = WidgetJournal::append(entry); !appended)
        return failed("journal append", appended.error());
    if (arguments.form == OutputForm::text)
        return entryText(entry, surroundings.calendar);
    return documentAnswer(encodeJournalEntry(entry));
}

CommandResult journalRemove(const Arguments& arguments, const Surroundings&) {
    std::set<Uuid> ids;
    for (const std::string& given : arguments.uuids) {
        const auto id = parseUuid(given);
        if (!id)
            return wrongUsage("journal remove", "\"" + given + "\" is not a UUID");
        ids.insert(*id);
    }
    if (auto removed = WidgetJournal::remove(ids); !removed)
        return failed("journal remove", removed.error());
    return done(arguments.form, "The journal no longer has these entries.\n");
}

CommandResult journalClear(const Arguments& arguments, const Surroundings&) {
    if (auto cleared = WidgetJournal::removeAll(); !cleared)
        return failed("journal clear", cleared.error());
    return done(arguments.form, "The journal is empty.\n");
}

} // namespace vantel::commands
