#include "host/desk/Placements.h"

#include "platform/JsonDocument.h"
#include "platform/JsonWriter.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace vantel {

namespace {

constexpr std::array<std::pair<Corner, std::string_view>, 4> cornerNames{
    {{Corner::topLeft, "topLeft"},
     {Corner::topRight, "topRight"},
     {Corner::bottomLeft, "bottomLeft"},
     {Corner::bottomRight, "bottomRight"}}};

/// Beyond any screen, and far from the ends of an integer.
constexpr std::int64_t farthest = 1'000'000;

std::string_view name(Corner corner) {
    return cornerNames[static_cast<std::size_t>(corner)].second;
}

std::optional<Corner> parseCorner(std::string_view text) {
    for (const auto& [corner, cornerName] : cornerNames)
        if (cornerName == text)
            return corner;
    return std::nullopt;
}

std::optional<WidgetFamily> parseFamily(std::string_view text) {
    const auto family = parseWidgetFamily(text);
    return family && vantel::name(*family) == text ? family : std::nullopt;
}

int length(JsonObjectReader& object, std::string_view key) {
    return static_cast<int>(std::clamp(object.integer(key), -farthest, farthest));
}

MonitorIdentity decodeMonitor(JsonObjectReader& object) {
    return {.manufacturer = object.text("manufacturer"),
            .model = object.text("model"),
            .serial = object.text("serial"),
            .name = object.text("name")};
}

MonitorFrame decodeFrame(JsonObjectReader& object) {
    return {.x = length(object, "x"),
            .y = length(object, "y"),
            .width = length(object, "width"),
            .height = length(object, "height")};
}

Placement decodePlacement(JsonObjectReader& object) {
    return {.id = object.parsedText("id", parseUuid, "not an identifier"),
            .kind = object.text("kind"),
            .family = object.parsedText("family", parseFamily, "not a known size"),
            .monitor = object.optionalObject("monitor", decodeMonitor).value_or(MonitorIdentity()),
            .frame = object.optionalObject("frame", decodeFrame).value_or(MonitorFrame()),
            .corner = object.parsedText("corner", parseCorner, "not a corner"),
            .margins = {length(object, "horizontal"), length(object, "vertical")}};
}

Result<void> checkIdentifiers(const Placements& placements) {
    std::set<Uuid> known;
    for (const Placement& placement : placements)
        if (!known.insert(placement.id).second)
            return std::unexpected(
                DecodingError{"placements", "two have the identifier " + text(placement.id)});
    return {};
}

void write(const MonitorIdentity& monitor, JsonWriter& writer) {
    writer.beginObject();
    writer.field("manufacturer", monitor.manufacturer);
    writer.field("model", monitor.model);
    writer.field("serial", monitor.serial);
    writer.field("name", monitor.name);
    writer.endObject();
}

void write(const MonitorFrame& frame, JsonWriter& writer) {
    writer.beginObject();
    writer.field("x", frame.x);
    writer.field("y", frame.y);
    writer.field("width", frame.width);
    writer.field("height", frame.height);
    writer.endObject();
}

void write(const Placement& placement, JsonWriter& writer) {
    writer.beginObject();
    writer.field("id", text(placement.id));
    writer.field("kind", placement.kind);
    writer.field("family", vantel::name(placement.family));
    writer.key("monitor");
    write(placement.monitor, writer);
    if (placement.frame != MonitorFrame()) {
        writer.key("frame");
        write(placement.frame, writer);
    }
    writer.field("corner", name(placement.corner));
    writer.field("horizontal", placement.margins.horizontal);
    writer.field("vertical", placement.margins.vertical);
    writer.endObject();
}

} // namespace

Result<Placements> parsePlacements(std::string_view bytes) {
    JsonDocument document;
    auto object = document.parseObject(bytes);
    if (!object)
        return std::unexpected(object.error());
    const std::int64_t version = object->integer("version");
    if (!object->failure() && version != placementsVersion)
        return std::unexpected(DecodingError{"version", "not " + std::to_string(placementsVersion)});
    Placements placements = object->objects("placements", decodePlacement);
    if (object->failure())
        return std::unexpected(*object->failure());
    if (auto checked = checkIdentifiers(placements); !checked)
        return std::unexpected(checked.error());
    return placements;
}

Result<std::string> writePlacements(const Placements& placements) {
    JsonWriter writer;
    writer.beginObject();
    writer.field("version", placementsVersion);
    writer.key("placements");
    writer.beginArray();
    for (const Placement& placement : placements)
        write(placement, writer);
    writer.endArray();
    writer.endObject();
    return writer.finish();
}

} // namespace vantel
