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
constexpr std::int64_t largestMargin = 1'000'000;

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

int margin(std::int64_t value) {
    return static_cast<int>(std::clamp(value, -largestMargin, largestMargin));
}

MonitorIdentity decodeMonitor(JsonObjectReader& object) {
    return {.manufacturer = object.text("manufacturer"),
            .model = object.text("model"),
            .serial = object.text("serial"),
            .name = object.text("name")};
}

Placement decodePlacement(JsonObjectReader& object) {
    return {.id = object.parsedText("id", parseUuid, "not an identifier"),
            .kind = object.text("kind"),
            .family = object.parsedText("family", parseFamily, "not a known size"),
            .monitor = object.optionalObject("monitor", decodeMonitor).value_or(MonitorIdentity()),
            .corner = object.parsedText("corner", parseCorner, "not a corner"),
            .margins = {margin(object.integer("horizontal")), margin(object.integer("vertical"))}};
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

void write(const Placement& placement, JsonWriter& writer) {
    writer.beginObject();
    writer.field("id", text(placement.id));
    writer.field("kind", placement.kind);
    writer.field("family", vantel::name(placement.family));
    writer.key("monitor");
    write(placement.monitor, writer);
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
