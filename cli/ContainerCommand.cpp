#include "cli/Answer.h"
#include "cli/Commands.h"
#include "core/WidgetShared.h"
#include "platform/VisibleText.h"

namespace vantel::commands {

namespace {

void writePath(JsonWriter& json, std::string_view key, const std::optional<FileURL>& path) {
    json.key(key);
    if (path)
        json.value(path->string());
    else
        json.null();
}

std::string pathText(const std::string& title, const std::optional<FileURL>& path) {
    return title + (path ? visibleText(path->string()) : "none") + "\n";
}

} // namespace

CommandResult container(const Arguments& arguments, const Surroundings&) {
    using namespace WidgetShared;
    const std::string text =
        "group      " + visibleText(appGroupID()) + "\n" + pathText("container  ", containerURL()) +
        pathText("snapshot   ", snapshotURL()) + pathText("lock       ", snapshotLockURL()) +
        pathText("journal    ", journalURL());
    return answer(arguments.form, text, [&](JsonWriter& json) {
        json.beginObject();
        json.field("appGroupID", appGroupID());
        writePath(json, "container", containerURL());
        writePath(json, "snapshot", snapshotURL());
        writePath(json, "snapshotLock", snapshotLockURL());
        writePath(json, "journal", journalURL());
        json.endObject();
    });
}

} // namespace vantel::commands
