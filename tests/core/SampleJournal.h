#pragma once

#include "core/WidgetJournalEntry.h"

#include <ostream>
#include <string>

namespace vantel {

/// How a failing test shows an entry.
inline void PrintTo(const WidgetJournalEntry& entry, std::ostream* stream) {
    *stream << encodeJournalEntry(entry).value_or("an entry that has no line");
}

} // namespace vantel

namespace vantel::testing {

/// The identifier 00000000-0000-4000-8000-0000000000<number>, with the number in hexadecimal.
inline Uuid sampleUuid(int number) {
    Uuid uuid{};
    uuid.bytes[6] = 0x40;
    uuid.bytes[8] = 0x80;
    uuid.bytes[15] = static_cast<std::uint8_t>(number);
    return uuid;
}

/// An entry that differs from every other number's in each of its texts.
inline WidgetJournalEntry sampleEntry(int number) {
    const std::string suffix = std::to_string(number);
    return {.id = sampleUuid(number),
            .accountID = "account-" + suffix,
            .action = WidgetJournalEntry::Action::completeTodo,
            .todoID = "todo-" + suffix,
            .at = instantFromReference(788'918'400 + number)};
}

/// The entry's line, as a journal holds it.
inline std::string sampleLine(int number) {
    const std::string suffix = std::to_string(number);
    return R"({"id":")" + text(sampleUuid(number)) + R"(","accountID":"account-)" + suffix +
           R"(","action":"completeTodo","todoID":"todo-)" + suffix + R"(","at":)" +
           std::to_string(788'918'400 + number) + "}\n";
}

} // namespace vantel::testing
