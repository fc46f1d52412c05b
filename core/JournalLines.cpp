#include "core/JournalLines.h"

#include <algorithm>

namespace vantel {

std::vector<std::string_view> journalLines(std::string_view bytes) {
    std::vector<std::string_view> lines;
    while (!bytes.empty()) {
        const std::string_view line = bytes.substr(0, bytes.find('\n'));
        bytes.remove_prefix(std::min(line.size() + 1, bytes.size()));
        if (!line.empty())
            lines.push_back(line);
    }
    return lines;
}

std::vector<WidgetJournalEntry> decodeJournal(std::string_view bytes) {
    std::vector<WidgetJournalEntry> entries;
    for (const std::string_view line : journalLines(bytes))
        if (auto entry = decodeJournalEntry(line))
            entries.push_back(std::move(*entry));
    return entries;
}

Result<std::string> encodeJournal(const std::vector<WidgetJournalEntry>& entries,
                                  const std::set<Uuid>& without) {
    std::string contents;
    for (const WidgetJournalEntry& entry : entries) {
        if (without.contains(entry.id))
            continue;
        const auto line = encodeJournalEntry(entry);
        if (!line)
            return std::unexpected(line.error());
        contents += *line + '\n';
    }
    return contents;
}

} // namespace vantel
