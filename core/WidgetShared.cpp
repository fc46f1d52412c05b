#include "core/WidgetShared.h"

#include "platform/GroupContainer.h"
#include "platform/InformationDictionary.h"

namespace vantel::WidgetShared {

namespace {

std::optional<FileURL> fileInContainer(const char* name) {
    const auto container = containerURL();
    if (!container)
        return std::nullopt;
    return *container / name;
}

} // namespace

const std::string& appGroupID() {
    static const std::string identifier =
        informationText(informationDictionaryOf(mainExecutable()), "VantelAppGroupIdentifier")
            .value_or(std::string(defaultAppGroupID));
    return identifier;
}

std::optional<FileURL> containerURL() {
    return groupContainer(appGroupID());
}

std::optional<FileURL> snapshotURL() {
    return fileInContainer("widget-snapshot.json");
}

std::optional<FileURL> snapshotLockURL() {
    return fileInContainer("widget-snapshot.lock");
}

std::optional<FileURL> journalURL() {
    return fileInContainer("widget-journal.ndjson");
}

} // namespace vantel::WidgetShared
