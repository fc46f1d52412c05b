#include "platform/BaseFolders.h"

#include <cstdlib>

namespace vantel {

namespace {

std::optional<FileURL> absolutePathFrom(const char* variable) {
    const char* value = std::getenv(variable);
    if (value == nullptr || value[0] != '/')
        return std::nullopt;
    return FileURL(value);
}

std::optional<FileURL> baseFolder(const char* variable, const char* belowHome) {
    if (auto chosen = absolutePathFrom(variable))
        return chosen;
    if (const auto home = absolutePathFrom("HOME"))
        return *home / belowHome;
    return std::nullopt;
}

} // namespace

std::optional<FileURL> dataHome() {
    return baseFolder("XDG_DATA_HOME", ".local/share");
}

std::optional<FileURL> stateHome() {
    return baseFolder("XDG_STATE_HOME", ".local/state");
}

} // namespace vantel
