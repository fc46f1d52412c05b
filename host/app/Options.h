#pragma once

#include "host/app/BackEnd.h"

#include <expected>
#include <optional>
#include <string>

namespace vantel {

/// What the program is asked to do.
enum class Task { run, showGallery, renderCard, renderGallery, examine };

/// What its command line says. Fields that a task does not take keep their defaults.
struct Options {
    Task task = Task::run;
    std::string kind;
    std::string family;
    std::string output;
    bool isDark = false;
    double scale = 2;
    std::optional<std::string> at;
    std::optional<std::string> snapshotFile;
    bool usesPlaceholder = false;
    WantedBackEnd backEnd = WantedBackEnd::automatic;
};

/// Why there is nothing to do: a text to print, and the exit status that goes with it.
struct NothingToDo {
    int status;
    std::string text;
};

std::expected<Options, NothingToDo> parseOptions(int count, const char* const* words);

} // namespace vantel
