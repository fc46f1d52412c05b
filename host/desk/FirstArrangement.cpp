#include "host/desk/Arrangement.h"
#include "host/scene/Look.h"
#include "hosting/WidgetBundle.h"

#include <algorithm>

namespace vantel {

namespace {

WidgetFamily firstFamily(const StaticConfiguration& configuration) {
    if (configuration.supports(WidgetFamily::systemMedium))
        return WidgetFamily::systemMedium;
    return configuration.supports(WidgetFamily::systemSmall) ? WidgetFamily::systemSmall
                                                             : configuration.supportedFamilies.front();
}

bool hasRoom(const WidgetRow& row) {
    return row.size() == 1 && row.front().family == WidgetFamily::systemSmall;
}

/// Makes room for a small one beside the last, if that can be small too.
bool madeRoom(std::vector<WidgetRow>& rows, const WidgetBundle& bundle) {
    if (rows.empty() || rows.back().size() != 1)
        return false;
    WantedWidget& last = rows.back().front();
    if (!bundle.widget(last.kind)->supports(WidgetFamily::systemSmall))
        return false;
    last.family = WidgetFamily::systemSmall;
    return true;
}

void place(const StaticConfiguration& configuration, std::vector<WidgetRow>& rows,
           const WidgetBundle& bundle) {
    const WantedWidget widget{configuration.kind, firstFamily(configuration)};
    const bool isSmall = widget.family == WidgetFamily::systemSmall;
    if (isSmall && ((!rows.empty() && hasRoom(rows.back())) || madeRoom(rows, bundle)))
        rows.back().push_back(widget);
    else
        rows.push_back({widget});
}

QSize sizeOf(const WantedWidget& widget, double scale) {
    return cardSize(widget.family, scale).toSize();
}

QSize sizeOf(const WidgetRow& row, double scale) {
    QSize size(0, 0);
    for (const WantedWidget& widget : row) {
        const QSize card = sizeOf(widget, scale);
        size = {size.width() + card.width() + (size.isEmpty() ? 0 : cardGap(scale)),
                std::max(size.height(), card.height())};
    }
    return size;
}

/// Puts a row's cards from the left to the right, the last one's right edge at `right`.
void addRow(const WidgetRow& row, QPoint right, double scale, std::vector<WidgetSpot>& spots) {
    QPoint next = right - QPoint(sizeOf(row, scale).width(), 0);
    for (const WantedWidget& widget : row) {
        const QSize card = sizeOf(widget, scale);
        spots.push_back({widget, QRect(next, card)});
        next.rx() += card.width() + cardGap(scale);
    }
}

} // namespace

std::vector<WidgetRow> firstRows(const WidgetBundle& bundle) {
    std::vector<WidgetRow> rows;
    for (const StaticConfiguration& configuration : bundle.widgets)
        if (!configuration.supportedFamilies.empty())
            place(configuration, rows, bundle);
    return rows;
}

std::vector<WidgetSpot> firstArrangement(const std::vector<WidgetRow>& rows, const QRect& area,
                                         double scale) {
    const int gap = cardGap(scale);
    const int bottom = area.y() + area.height() - gap;
    std::vector<WidgetSpot> spots;
    QPoint next(area.x() + area.width() - gap, area.y() + gap);
    int columnWidth = 0;
    for (const WidgetRow& row : rows) {
        const QSize size = sizeOf(row, scale);
        if (columnWidth > 0 && next.y() + size.height() > bottom) {
            next = {next.x() - columnWidth - gap, area.y() + gap};
            columnWidth = 0;
        }
        addRow(row, next, scale, spots);
        columnWidth = std::max(columnWidth, size.width());
        next.ry() += size.height() + gap;
    }
    for (WidgetSpot& spot : spots)
        spot.card.moveTopLeft(clamped(spot.card, area));
    return spots;
}

} // namespace vantel
