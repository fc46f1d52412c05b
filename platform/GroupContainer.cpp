#include "platform/GroupContainer.h"

#include "platform/BaseFolders.h"

namespace vantel {

namespace {

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
