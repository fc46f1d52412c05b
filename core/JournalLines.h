#pragma once

#include "core/WidgetJournalEntry.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

/// The bytes of a journal and their lines. Pure.
namespace vantel {

/// The lines without their line feeds, the empty ones left out. They look into `bytes`.
std::vector<std::string_view> journalLines(std::string_view bytes);

/// The entries of the lines that decode, in order.
std::vector<WidgetJournalEntry> decodeJournal(std::string_view bytes);

/// The lines of the entries, without those of the ids.
Result<std::string> encodeJournal(const std::vector<WidgetJournalEntry>& entries,
                                  const std::set<Uuid>& without);

} // namespace vantel
