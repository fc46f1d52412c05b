#include "hosting/ViewText.h"

#include "hosting/card/Actions.h"
#include "hosting/card/BoxMaker.h"
#include "hosting/card/CanvasPrinter.h"
#include "hosting/card/Lines.h"
#include "platform/DisplayWidth.h"

#include <algorithm>

namespace vantel {

namespace {

using namespace card;

constexpr DynamicColor primaryText{.lightHex = 0x1B1A17, .darkHex = 0xFFFFFF};
constexpr int sideMargin = 2;
constexpr int topMargin = 1;
constexpr int leastRows = 7;

int innerWidth(WidgetFamily family) {
    return family == WidgetFamily::systemSmall ? 30 : 62;
}

/// What reads on a background, whatever the appearance: black or white, as faint as asked for.
Pen penOn(const ResolvedColor& background, double opacity) {
    const double luminance = 0.21 * background.red + 0.72 * background.green + 0.07 * background.blue;
    const double component = luminance > 0.5 ? 0 : 1;
    return {{component, component, component, opacity}};
}

std::string heading(const WidgetView& view, const TextCardOptions& options, int width) {
    const std::string family = " · " + std::string(shortName(view.family)) + " ";
    return " " + elided(cardText(options.title), width - 1 - displayWidth(family)) + family;
}

void drawFrame(Canvas& canvas, const std::string& heading) {
    const Pen line = penOn(canvas.background(), 0.25);
    const Rect edge = canvas.bounds();
    const int right = edge.width - 1;
    const int bottom = edge.height - 1;
    canvas.fill({0, 0, edge.width, 1}, "─", line);
    canvas.fill({0, bottom, edge.width, 1}, "─", line);
    canvas.fill({0, 0, 1, edge.height}, "│", line);
    canvas.fill({right, 0, 1, edge.height}, "│", line);
    canvas.write(edge, "╭", line);
    canvas.write(edge.from(right), "╮", line);
    canvas.write(edge.below(bottom), "╰", line);
    canvas.write(edge.below(bottom).from(right), "╯", line);
    canvas.write(edge.from(2), heading, penOn(canvas.background(), 0.6));
}

Canvas drawnCard(const WidgetView& view, const TextCardOptions& options) {
    const BoxContext context{.formats = options.formats,
                             .appearance = options.appearance,
                             .primary = resolve(primaryText, options.appearance),
                             .colors = options.colors,
                             .now = view.date};
    const BoxPointer content = makeBox(view.content.content, context);
    const int width = innerWidth(view.family) - 2 * sideMargin;
    const int rows = std::max(leastRows, content->height(std::min(width, content->idealWidth())));
    Canvas canvas({innerWidth(view.family) + 2, rows + 2 * topMargin + 2},
                  resolve(view.content.background, options.appearance, context.primary));
    drawFrame(canvas, heading(view, options, width));
    const Rect room{1 + sideMargin, 1 + topMargin, width, rows};
    content->draw(canvas, placed(*content, room, StackAlignment::center));
    return canvas;
}

} // namespace

std::string viewText(const WidgetView& view, const TextCardOptions& options) {
    return printed(drawnCard(view, options), options.colors) + actionLines(view, options.formats);
}

} // namespace vantel
