#include "host/desk/Arrangement.h"
#include "host/scene/Look.h"
#include "hosting/WidgetBundle.h"

#include <QGuiApplication>
#include <algorithm>
#include <functional>

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

/// The rows from the top right down, and on in further columns to the left; absent where they find no room.
std::optional<std::vector<WidgetSpot>> inColumns(const std::vector<WidgetRow>& rows, const QRect& area,
                                                 double scale) {
    const int gap = cardGap(scale);
    const QRect inside = area.adjusted(gap, gap, -gap, -gap);
    std::vector<WidgetSpot> spots;
    QPoint next(inside.x() + inside.width(), inside.y());
    int columnWidth = 0;
    for (const WidgetRow& row : rows) {
        const QSize size = sizeOf(row, scale);
        if (columnWidth > 0 && next.y() + size.height() > inside.y() + inside.height()) {
            next = {next.x() - columnWidth - gap, inside.y()};
            columnWidth = 0;
        }
        addRow(row, next, scale, spots);
        columnWidth = std::max(columnWidth, size.width());
        next.ry() += size.height() + gap;
    }
    const auto isInside = [&](const WidgetSpot& spot) { return inside.contains(spot.card); };
    return std::ranges::all_of(spots, isInside) ? std::optional(spots) : std::nullopt;
}

WidgetRow flattened(const std::vector<WidgetRow>& rows) {
    WidgetRow widgets;
    for (const WidgetRow& row : rows)
        widgets.insert(widgets.end(), row.begin(), row.end());
    return widgets;
}

/// Makes the last one small that is not and can be.
bool hasShrunkOne(WidgetRow& widgets, const WidgetBundle& bundle) {
    const auto canShrink = [&](const WantedWidget& widget) {
        return widget.family != WidgetFamily::systemSmall &&
               bundle.widget(widget.kind)->supports(WidgetFamily::systemSmall);
    };
    const auto last = std::ranges::find_if(widgets.rbegin(), widgets.rend(), canShrink);
    if (last == widgets.rend())
        return false;
    last->family = WidgetFamily::systemSmall;
    return true;
}

std::vector<WidgetSpot> unplaced(const WidgetRow& widgets, double scale) {
    std::vector<WidgetSpot> spots;
    spots.reserve(widgets.size());
    for (const WantedWidget& widget : widgets)
        spots.push_back({widget, QRect(QPoint(), sizeOf(widget, scale))});
    return spots;
}

std::vector<WidgetSpot*> largestFirst(std::vector<WidgetSpot>& spots) {
    std::vector<WidgetSpot*> order;
    order.reserve(spots.size());
    for (WidgetSpot& spot : spots)
        order.push_back(&spot);
    std::ranges::stable_sort(order, std::greater(),
                             [](const WidgetSpot* spot) { return spot->card.width() * spot->card.height(); });
    return order;
}

/// Small ones fit into what the large ones leave.
std::optional<std::vector<WidgetSpot>> packed(const WidgetRow& widgets, const QRect& area, double scale,
                                              int gap) {
    std::vector<WidgetSpot> spots = unplaced(widgets, scale);
    std::vector<QRect> taken;
    for (WidgetSpot* spot : largestFirst(spots)) {
        const auto place = spotWithGap(spot->card.size(), taken, area, gap);
        if (!place)
            return std::nullopt;
        spot->card.moveTopLeft(*place);
        taken.push_back(spot->card);
    }
    return spots;
}

/// The longest step down to the left that leaves all cards inside; none where one has no room at all.
QSize longestStep(const std::vector<WidgetSpot>& spots, QSize area) {
    const int last = static_cast<int>(spots.size()) - 1;
    QSize step = area;
    for (int i = 0; i <= last; ++i) {
        const QSize room = area - spots[static_cast<std::size_t>(i)].card.size();
        if (!room.isValid())
            return {};
        step = step.boundedTo({i < last ? room.width() / (last - i) : area.width(),
                               last > 0 ? room.height() / last : area.height()});
    }
    return step;
}

/// In steps from the trailing upper corner down, so wide that each title is seen whichever card lies above.
std::optional<std::vector<WidgetSpot>> stepped(const WidgetRow& widgets, const QRect& area, double scale) {
    std::vector<WidgetSpot> spots = unplaced(widgets, scale);
    const QSize step = longestStep(spots, area.size());
    if (step.boundedTo(titleSize(scale)) != titleSize(scale))
        return std::nullopt;
    const bool isMirrored = QGuiApplication::layoutDirection() == Qt::RightToLeft;
    QPoint place(static_cast<int>(spots.size() - 1) * step.width(), 0);
    for (WidgetSpot& spot : spots) {
        const int left = isMirrored ? area.width() - place.x() - spot.card.width() : place.x();
        spot.card.moveTopLeft(area.topLeft() + QPoint(left, place.y()));
        place += QPoint(-step.width(), step.height());
    }
    return spots;
}

/// Each where it finds a place, over others if need be.
std::vector<WidgetSpot> crowded(const WidgetRow& widgets, const QRect& area, double scale) {
    std::vector<WidgetSpot> spots = unplaced(widgets, scale);
    std::vector<QRect> taken;
    for (WidgetSpot& spot : spots) {
        spot.card.moveTopLeft(freeSpot(spot.card.size(), taken, area, scale));
        taken.push_back(spot.card);
    }
    return spots;
}

} // namespace

std::vector<WidgetRow> firstRows(const WidgetBundle& bundle) {
    std::vector<WidgetRow> rows;
    for (const StaticConfiguration& configuration : bundle.widgets)
        if (!configuration.supportedFamilies.empty())
            place(configuration, rows, bundle);
    return rows;
}

std::vector<WidgetSpot> firstArrangement(const WidgetBundle& bundle, const QRect& area, double scale) {
    const std::vector<WidgetRow> rows = firstRows(bundle);
    if (const auto spots = inColumns(rows, area, scale))
        return *spots;
    WidgetRow smallest;
    for (const int gap : {cardGap(scale), cardGap(scale) / 2, cardGap(scale) / 4, 0}) {
        smallest = flattened(rows);
        do
            if (const auto spots = packed(smallest, area, scale, gap))
                return *spots;
        while (hasShrunkOne(smallest, bundle));
    }
    const auto spots = stepped(smallest, area, scale);
    return spots ? *spots : crowded(smallest, area, scale);
}

} // namespace vantel
