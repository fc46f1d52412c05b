#include "host/tasks/PictureTasks.h"

#include "core/SnapshotDocument.h"
#include "platform/DataFile.h"
#include "platform/InstantText.h"
#include "platform/VisibleText.h"
#include "widgets/VantelWidgetsBundle.h"
#include "widgets/WidgetNames.h"

#include <cstdio>

namespace vantel {

namespace {

enum class Status { done = 0, failed = 1, wrongUsage = 2 };

int said(Status status, const std::string& what, const std::string& why) {
    const std::string line = "vantel-widgets: " + visibleText(what) + ": " + visibleText(why) + "\n";
    std::fputs(line.c_str(), stderr);
    return static_cast<int>(status);
}

using SharedSnapshot = std::shared_ptr<const WidgetSnapshot>;

/// A document that does not decode is shown as no snapshot, as the container's would be.
Result<SharedSnapshot> readSnapshot(const std::string& file) {
    const auto bytes = readFile(file, systemFileSystem());
    if (!bytes)
        return std::unexpected(bytes.error());
    auto snapshot = decodeSnapshot(*bytes);
    if (!snapshot) {
        said(Status::failed, file, message(snapshot.error()) + " (shown as no snapshot)");
        return nullptr;
    }
    return std::make_shared<const WidgetSnapshot>(std::move(*snapshot));
}

struct Request {
    const Options& options;
    const SystemCalendar& calendar;
    const Formats& formats;
    Instant now;
};

Result<SharedSnapshot> requestedSnapshot(const Request& request) {
    if (request.options.usesPlaceholder)
        return std::make_shared<const WidgetSnapshot>(
            WidgetSnapshot::placeholder(request.now, request.calendar));
    if (request.options.snapshotFile)
        return readSnapshot(*request.options.snapshotFile);
    auto snapshot = WidgetSnapshot::load();
    return snapshot ? std::make_shared<const WidgetSnapshot>(std::move(*snapshot)) : nullptr;
}

int save(const QImage& picture, const std::string& output) {
    if (picture.save(QString::fromStdString(output), "PNG"))
        return static_cast<int>(Status::done);
    return said(Status::failed, output, "the picture cannot be written");
}

int drawCard(const Request& request, const StaticConfiguration& widget, WidgetFamily family) {
    const Options& options = request.options;
    const auto snapshot = requestedSnapshot(request);
    if (!snapshot)
        return said(Status::failed, *options.snapshotFile, message(snapshot.error()));
    const TimelineEntry entry = VantelWidgetsBundle::entry(widget.kind, {request.now, *snapshot});
    const auto view = renderedView(widget, entry, {family, request.calendar, request.formats});
    if (!view)
        return said(Status::failed, widget.kind, view.error());
    const Look look = pictureLook(options.isDark ? Appearance::darkAqua() : Appearance::aqua());
    return save(cardPicture(*view, look, {request.formats, request.calendar, request.now, options.scale}),
                options.output);
}

int drawCard(const Request& request, const WidgetBundle& bundle) {
    const Options& options = request.options;
    const StaticConfiguration* widget = findWidget(bundle, options.kind);
    if (widget == nullptr)
        return said(Status::wrongUsage, options.kind,
                    "there is no such widget (there are focus, next-up, triage and group-today)");
    const auto family = parseWidgetFamily(options.family);
    if (!family || !widget->supports(*family))
        return said(Status::wrongUsage, options.kind, "it has no size \"" + options.family + "\"");
    return drawCard(request, *widget, *family);
}

} // namespace

int drawPicture(const Options& options, const WidgetBundle& bundle, const SystemCalendar& calendar,
                const Formats& formats) {
    Instant now = SystemClock().now();
    if (options.at) {
        const auto given = parseInstant(*options.at, calendar);
        if (!given)
            return said(Status::wrongUsage, "--at", "\"" + *options.at + "\" is not an instant");
        now = *given;
    }
    if (options.task == Task::renderCard)
        return drawCard({options, calendar, formats, now}, bundle);
    return save(galleryPicture(bundle, {formats, calendar, now, options.scale}), options.output);
}

} // namespace vantel
