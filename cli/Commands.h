#pragma once

#include "cli/Command.h"

/// The commands of vantelctl, one function each. A failure changes nothing.
namespace vantel::commands {

CommandResult widgets(const Arguments& arguments, const Surroundings& surroundings);
CommandResult view(const Arguments& arguments, const Surroundings& surroundings);
CommandResult timeline(const Arguments& arguments, const Surroundings& surroundings);
CommandResult buckets(const Arguments& arguments, const Surroundings& surroundings);
CommandResult staleness(const Arguments& arguments, const Surroundings& surroundings);
CommandResult complete(const Arguments& arguments, const Surroundings& surroundings);
CommandResult link(const Arguments& arguments, const Surroundings& surroundings);
CommandResult snapshotShow(const Arguments& arguments, const Surroundings& surroundings);
CommandResult snapshotDecode(const Arguments& arguments, const Surroundings& surroundings);
CommandResult snapshotWrite(const Arguments& arguments, const Surroundings& surroundings);
CommandResult snapshotRemove(const Arguments& arguments, const Surroundings& surroundings);
CommandResult snapshotComplete(const Arguments& arguments, const Surroundings& surroundings);
CommandResult snapshotPlaceholder(const Arguments& arguments, const Surroundings& surroundings);
CommandResult journalList(const Arguments& arguments, const Surroundings& surroundings);
CommandResult journalAppend(const Arguments& arguments, const Surroundings& surroundings);
CommandResult journalRemove(const Arguments& arguments, const Surroundings& surroundings);
CommandResult journalClear(const Arguments& arguments, const Surroundings& surroundings);
CommandResult container(const Arguments& arguments, const Surroundings& surroundings);
CommandResult reload(const Arguments& arguments, const Surroundings& surroundings);

} // namespace vantel::commands
