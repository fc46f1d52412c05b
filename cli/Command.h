#pragma once

#include "platform/Clock.h"
#include "platform/Error.h"
#include "platform/Formats.h"
#include "platform/SystemCalendar.h"

#include <expected>
#include <optional>
#include <string>
#include <vector>

namespace vantel {

enum class ExitStatus { done = 0, failed = 1, wrongUsage = 2 };

/// Why a command gave no answer: what it was about, and why, for the one line on standard error.
struct CommandFailure {
    ExitStatus status;
    std::string what;
    std::string why;
};

/// What a command prints on standard output.
using CommandResult = std::expected<std::string, CommandFailure>;

enum class OutputForm { text, json };

/// What the command line says. Fields that a command does not take keep their defaults.
struct Arguments {
    OutputForm form = OutputForm::text;
    std::optional<std::string> at;
    std::optional<std::string> snapshotFile;
    bool usesPlaceholder = false;
    bool isPreview = false;
    std::optional<std::string> kind;
    std::string family;
    std::string todoID;
    std::optional<std::string> accountID;
    bool allowsLegacyUnbound = false;
    std::string file;
    std::optional<std::string> uuid;
    std::vector<std::string> uuids;
    std::string linkName;
    std::string linkValue;
};

/// The user's surroundings, found once at the start.
struct Surroundings {
    const Clock& clock; ///< stands still at `--at` when that is given
    SystemCalendar calendar;
    const Formats& formats;
    bool isColorTerminal = false;
};

using Command = CommandResult (*)(const Arguments&, const Surroundings&);

inline std::unexpected<CommandFailure> failed(std::string what, std::string why) {
    return std::unexpected(CommandFailure{ExitStatus::failed, std::move(what), std::move(why)});
}

inline std::unexpected<CommandFailure> failed(std::string what, const Error& error) {
    return failed(std::move(what), message(error));
}

inline std::unexpected<CommandFailure> wrongUsage(std::string what, std::string why) {
    return std::unexpected(CommandFailure{ExitStatus::wrongUsage, std::move(what), std::move(why)});
}

} // namespace vantel
