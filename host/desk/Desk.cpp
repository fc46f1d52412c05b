#include "host/desk/Desk.h"

#include "host/scene/Look.h"
#include "hosting/WidgetBundle.h"

#include <algorithm>
#include <utility>

namespace vantel {

namespace {

const Monitor* monitorAt(QPoint point, const std::vector<Monitor>& monitors) {
    const auto found =
        std::ranges::find_if(monitors, [&](const Monitor& each) { return each.geometry.contains(point); });
    return found != monitors.end() ? &*found : nullptr;
}

/// Makes a card's place the placement's, as distances from a corner of its monitor.
void settle(Placement& placement, const QRect& card, const Monitor& monitor, Corner corner) {
    placement.monitor = monitor.identity;
    placement.frame = frameOf(monitor);
    placement.corner = corner;
    placement.margins = marginsFrom(corner, card, monitor.geometry);
}

void settle(Placement& placement, const QRect& card, const Monitor& monitor) {
    settle(placement, card, monitor, nearestCorner(card, monitor.geometry));
}

std::set<MonitorIdentity> identitiesOf(const std::vector<Monitor>& monitors) {
    std::set<MonitorIdentity> identities;
    for (const Monitor& monitor : monitors)
        identities.insert(monitor.identity);
    return identities;
}

bool liesOver(const QRect& card, const std::vector<QRect>& others) {
    return std::ranges::any_of(others, [&](const QRect& other) { return card.intersects(other); });
}

} // namespace

void Desk::Deleter::operator()(CardWindow* window) const {
    // It may be the window itself that asked to be removed, and it shall ask for nothing more. Only its end
    // is still to be heard: what the toolkit keeps for screen readers ends with it.
    window->blockSignals(true);
    window->hideCard();
    window->deleteLater();
}

Desk::Desk(DeskParts parts, double scale)
    : m_parts(std::move(parts))
    , m_scale(scale) {
    connect(&m_parts.screens, &Screens::changed, this, &Desk::update);
}

Desk::~Desk() {
    for (auto& [id, window] : m_windows)
        delete window.release();
}

void Desk::start() {
    auto saved = m_parts.store.load();
    m_isFirstStart = !saved;
    m_placements = std::move(saved).value_or(Placements());
    update();
}

void Desk::placeFirst(const Monitor& monitor) {
    for (const auto& [widget, card] : firstSpots(monitor))
        m_placements.push_back(
            {.id = m_parts.identifiers.next(), .kind = widget.kind, .family = widget.family});
    arrangeFirst(monitor);
    m_isFirstStart = false;
    m_isAsFirst = true;
}

std::vector<WidgetSpot> Desk::firstSpots(const Monitor& monitor) const {
    return firstArrangement(m_parts.bundle, monitor.available, m_scale);
}

/// All keep to one corner, so that they stay together at any resolution.
void Desk::arrangeFirst(const Monitor& monitor) {
    const std::vector<WidgetSpot> spots = firstSpots(monitor);
    for (std::size_t i = 0; i < spots.size(); ++i) {
        if (std::exchange(m_placements[i].family, spots[i].widget.family) != spots[i].widget.family)
            m_windows.erase(m_placements[i].id);
        settle(m_placements[i], spots[i].card, monitor, Corner::topRight);
    }
    m_parts.store.save(m_placements);
}

/// Keeps what the user has arranged.
void Desk::keep() {
    m_isAsFirst = false;
    m_parts.store.save(m_placements);
}

const Monitor* Desk::monitorOf(const Placement& placement, const std::vector<Monitor>& monitors) const {
    return vantel::monitorOf(placement, monitors, m_placements, m_seen);
}

/// A monitor on which the user arranges something is the monitor of all that is shown there. Otherwise those
/// that are there in place of another one would go as soon as one belongs to it.
void Desk::adopt(const Monitor& monitor, const std::vector<Monitor>& monitors) {
    Placements adopted = m_placements;
    for (Placement& placement : adopted) {
        const Monitor* its = monitorOf(placement, monitors);
        if (its == nullptr || its->identity != monitor.identity)
            continue;
        placement.monitor = monitor.identity;
        placement.frame = frameOf(monitor);
    }
    m_placements = std::move(adopted);
}

Placement* Desk::find(const Uuid& id) {
    const auto found = std::ranges::find(m_placements, id, &Placement::id);
    return found != m_placements.end() ? &*found : nullptr;
}

CardWindow* Desk::window(const Uuid& id) const {
    const auto found = m_windows.find(id);
    return found != m_windows.end() ? found->second.get() : nullptr;
}

bool Desk::isKnown(const std::string& kind, WidgetFamily family) const {
    const StaticConfiguration* configuration = m_parts.bundle.widget(kind);
    return configuration != nullptr && configuration->supports(family);
}

std::vector<QRect> Desk::cardsOn(const Monitor& monitor, const Uuid& without) const {
    std::vector<QRect> cards;
    for (const auto& [id, window] : m_windows)
        if (id != without && monitor.geometry.intersects(window->cardGeometry()))
            cards.push_back(window->cardGeometry());
    return cards;
}

void Desk::add(const std::string& kind, WidgetFamily family) {
    const auto monitors = m_parts.screens.monitors();
    if (monitors.empty() || !isKnown(kind, family))
        return;
    const Monitor& monitor = monitors.front();
    adopt(monitor, monitors);
    const QSize card = cardSize(family, m_scale).toSize();
    Placement placement{.id = m_parts.identifiers.next(), .kind = kind, .family = family};
    settle(placement, QRect(freeSpot(card, cardsOn(monitor, placement.id), monitor.available, m_scale), card),
           monitor);
    m_placements.push_back(placement);
    keep();
    update();
}

void Desk::remove(const Uuid& id) {
    m_windows.erase(id);
    if (std::erase_if(m_placements, [&](const Placement& each) { return each.id == id; }) == 0)
        return;
    keep();
    announce();
}

void Desk::resize(const Uuid& id, WidgetFamily family) {
    Placement* placement = find(id);
    if (placement == nullptr || placement->family == family || !isKnown(placement->kind, family))
        return;
    placement->family = family;
    m_windows.erase(id);
    const auto monitors = m_parts.screens.monitors();
    if (const Monitor* monitor = monitorOf(*placement, monitors)) {
        const QSize card = cardSize(family, m_scale).toSize();
        adopt(*monitor, monitors);
        placement = find(id);
        const std::vector<QRect> others = cardsOn(*monitor, id);
        if (liesOver(QRect(positionOf(*placement, card, monitor->geometry), card), others))
            settle(*placement, QRect(freeSpot(card, others, monitor->available, m_scale), card), *monitor);
    }
    keep();
    update();
}

void Desk::setScale(double scale) {
    m_scale = scale;
    const auto monitors = m_parts.screens.monitors();
    if (m_isAsFirst && !monitors.empty())
        arrangeFirst(monitors.front());
    for (const auto& [id, window] : m_windows)
        window->setScale(scale);
    update();
}

void Desk::focusWidgets() {
    std::vector<CardWindow*> shown;
    for (const Placement& placement : m_placements)
        if (CardWindow* each = window(placement.id))
            shown.push_back(each);
    if (shown.empty())
        return;
    const auto last = std::ranges::find(shown, m_lastFocused.data());
    const bool goesOn = last != shown.end() && (*last)->hasTakenFocus() && last + 1 != shown.end();
    m_lastFocused = goesOn ? *(last + 1) : shown.front();
    m_lastFocused->takeFocus();
}

PlacedWidgets Desk::placed() const {
    const auto monitors = m_parts.screens.monitors();
    PlacedWidgets placed;
    for (const Placement& placement : m_placements)
        if (isKnown(placement.kind, placement.family) && monitorOf(placement, monitors) != nullptr)
            placed.push_back({placement.kind, placement.family});
    return placed;
}

void Desk::announce() {
    PlacedWidgets now = placed();
    if (now == m_announced)
        return;
    m_announced = now;
    Q_EMIT placedChanged(now);
}

void Desk::update() {
    const auto monitors = m_parts.screens.monitors();
    if (m_isFirstStart && !monitors.empty())
        placeFirst(monitors.front());
    m_seen.insert(identitiesOf(monitors));
    // Whoever hears it can fetch what the cards are to show while their windows are made.
    announce();
    std::vector<QRect> shown;
    for (const Placement& placement : m_placements)
        updateWindow(placement, monitors, shown);
}

/// Where a placement is shown. Larger cards, and smaller or other screens than those it was made for, may not
/// put it over another: then it is shown beside the others, and its own place stays remembered.
QPoint Desk::shownPosition(const Placement& placement, QSize card, const Monitor& monitor,
                           const std::vector<QRect>& shown) const {
    const QPoint position = positionOf(placement, card, monitor.geometry);
    const QRect place(position, card);
    const bool fits = marginsFrom(placement.corner, place, monitor.geometry) == placement.margins;
    const bool isHome = !isNameless(placement.monitor) || placement.monitor == monitor.identity;
    const bool isMeant = m_scale == 1 || m_isAsFirst;
    if ((isHome && fits && isMeant) || !liesOver(place, shown))
        return position;
    return freeSpot(card, shown, monitor.available, m_scale);
}

void Desk::updateWindow(const Placement& placement, const std::vector<Monitor>& monitors,
                        std::vector<QRect>& shown) {
    const Monitor* monitor = monitorOf(placement, monitors);
    if (monitor == nullptr || !isKnown(placement.kind, placement.family)) {
        m_windows.erase(placement.id);
        return;
    }
    Window& window = m_windows[placement.id];
    const bool isNew = window == nullptr;
    if (isNew)
        window = makeWindow(placement);
    const QSize card = window->card()->size();
    const QPoint position = shownPosition(placement, card, *monitor, shown);
    shown.emplace_back(position, card);
    if (isNew || window->cardScreen() != monitor->screen)
        window->showCard(monitor->screen, position);
    else
        window->moveCard(position);
}

Desk::Window Desk::makeWindow(const Placement& placement) {
    const StaticConfiguration& configuration = *m_parts.bundle.widget(placement.kind);
    Window window(new CardWindow(m_parts.makeCard(placement), m_scale, m_parts.windows, m_parts.formats));
    window->setFamilies({configuration.supportedFamilies, placement.family});
    const QString name =
        QString::fromStdString(m_parts.formats.translated(configuration.displayName.c_str()));
    window->setWindowTitle(name);
    window->card()->setAccessibleName(name);
    connectWindow(*window, placement.id);
    return window;
}

void Desk::connectWindow(CardWindow& window, const Uuid& id) {
    connect(&window, &CardWindow::dragged, this, [this, id](QPoint position) { drag(id, position); });
    connect(&window, &CardWindow::dropped, this, [this, id] { drop(id); });
    connect(&window, &CardWindow::cardResized, this, &Desk::update);
    connect(&window, &CardWindow::focusTaken, this, [this, &window] { Q_EMIT cardFocused(window.card()); });
    connect(&window, &CardWindow::familyChosen, this,
            [this, id](WidgetFamily family) { resize(id, family); });
    connect(&window, &CardWindow::commandChosen, this, [this, id](MenuCommand command) { run(id, command); });
}

void Desk::drag(const Uuid& id, QPoint position) {
    const auto monitors = m_parts.screens.monitors();
    CardWindow& moving = *window(id);
    const QRect wanted(position, moving.card()->size());
    const Monitor* monitor = monitorAt(wanted.center(), monitors);
    if (monitor == nullptr)
        monitor = monitorAt(moving.cardGeometry().center(), monitors);
    if (monitor != nullptr)
        moving.moveCard(snapped(wanted, cardsOn(*monitor, id), monitor->available, m_scale));
}

void Desk::drop(const Uuid& id) {
    const auto monitors = m_parts.screens.monitors();
    CardWindow& dropped = *window(id);
    const Monitor* monitor = monitorAt(dropped.cardGeometry().center(), monitors);
    if (monitor == nullptr)
        return dropped.settleCard(dropped.cardScreen());
    adopt(*monitor, monitors);
    moveAside(dropped, cardsOn(*monitor, id), *monitor);
    settle(*find(id), dropped.cardGeometry(), *monitor);
    keep();
    dropped.settleCard(monitor->screen);
}

/// A card that was dropped onto another comes to rest beside it, unless the screen is full.
void Desk::moveAside(CardWindow& dropped, const std::vector<QRect>& others, const Monitor& monitor) const {
    const QRect card = dropped.cardGeometry();
    if (!liesOver(card, others))
        return;
    if (const auto spot = freeSpotNear(card, others, monitor.available, m_scale))
        dropped.moveCard(*spot);
}

void Desk::run(const Uuid& id, MenuCommand command) {
    switch (command) {
    case MenuCommand::takeFocus:
        return window(id)->takeFocus();
    case MenuCommand::remove:
        return remove(id);
    case MenuCommand::addWidgets:
        return Q_EMIT addWidgetsAsked();
    case MenuCommand::reload:
        return Q_EMIT reloadAsked(find(id)->kind);
    case MenuCommand::about:
        return Q_EMIT aboutAsked();
    case MenuCommand::quit:
        return Q_EMIT quitAsked();
    }
}

} // namespace vantel
