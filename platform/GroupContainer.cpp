#include "platform/GroupContainer.h"

#include <cstdlib>

namespace vantel {

namespace {

std::optional<FileURL> absolutePathFrom(const char* variable) {
    const char* value = std::getenv(variable);
    if (value == nullptr || value[0] != '/')
        return std::nullopt;
    return FileURL(value);
}

std::optional<FileURL> dataHome() {
    if (auto dataHome = absolutePathFrom("XDG_DATA_HOME"))
        return dataHome;
    if (const auto home = absolutePathFrom("HOME"))
        return *home / ".local" / "share";
    return std::nullopt;
}

bool isFileName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." && !name.contains('/') && !name.contains('\0');
}

} // namespace

std::optional<FileURL> groupContainer(std::string_view identifier) {
    const auto base = dataHome();
    if (!base || !isFileName(identifier))
        return std::nullopt;
    return *base / "group-containers" / identifier;
}

} // namespace vantel
