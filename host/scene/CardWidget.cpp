#include "host/scene/CardWidget.h"

#include "host/scene/ActionArea.h"
#include "host/scene/Countdown.h"
#include "host/scene/Crossfade.h"
#include "host/scene/Differences.h"
#include "host/scene/FocusRing.h"
#include "host/scene/Notice.h"
#include "host/scene/SceneAccessibility.h"
#include "host/scene/ScenePainter.h"
#include "host/scene/Targets.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

namespace vantel {

namespace {

/// A later moment alone changes nothing that is seen.
bool showsTheSame(const WidgetView& a, const WidgetView& b) {
    return a.kind == b.kind && a.family == b.family && a.content == b.content;
}

bool contains(const std::vector<IntentCall>& calls, const IntentCall& call) {
    return std::ranges::find(calls, call) != calls.end();
}

} // namespace

struct CardWidget::Private {
    explicit Private(const Formats& userFormats, CardWidget* card)
        : formats(userFormats)
        , targets(card)
        , notice(card)
        , fade(*card) {}

    const Formats& formats;
    scene::Targets targets;
    scene::Notice notice;
    scene::Crossfade fade;
    std::optional<WidgetView> view;
    Look look;
    Instant now{};
    Instant laidOutAt{};
    scene::ShapedTexts texts;
    scene::Scene scene;
    scene::PaintState state;
    std::vector<IntentCall> pending;
    bool hasRing = false;
    bool isPressed = false;
};

CardWidget::CardWidget(const Formats& formats, QWidget* parent)
    : QWidget(parent)
    , m_private(std::make_unique<Private>(formats, this)) {
    scene::installSceneAccessibility();
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::TabFocus);
    connect(&m_private->targets, &scene::Targets::activated, this, &CardWidget::activate);
}

CardWidget::~CardWidget() = default;

void CardWidget::setView(const WidgetView& view, Arrival arrival) {
    if (m_private->view && showsTheSame(*m_private->view, view))
        return;
    if (arrival == Arrival::faded && canFadeTo(view))
        m_private->fade.begin(sceneOnly());
    m_private->view = view;
    layOut();
}

void CardWidget::setLook(const Look& look) {
    if (m_private->look == look)
        return;
    Look recolored = m_private->look;
    recolored.appearance = look.appearance;
    recolored.motion = look.motion;
    const bool isSameLayout = recolored == look;
    m_private->look = look;
    if (isSameLayout)
        redraw();
    else
        layOutWithNewFonts();
}

void CardWidget::setNow(Instant now) {
    m_private->now = now;
    const auto tick = scene::nextTick(m_private->scene.countdowns, m_private->laidOutAt);
    const bool isClockBack = now < m_private->laidOutAt && !m_private->scene.countdowns.empty();
    if ((tick && *tick <= now) || isClockBack)
        countDown();
}

std::optional<Instant> CardWidget::nextTick(Instant now) const {
    return scene::nextTick(m_private->scene.countdowns, now);
}

void CardWidget::setPending(const IntentCall& intent) {
    m_private->pending.push_back(intent);
    markPending();
    redraw();
}

void CardWidget::endPending(const IntentCall& intent) {
    std::erase(m_private->pending, intent);
    markPending();
    redraw();
}

void CardWidget::showNotice(const QString& text) {
    m_private->notice.say(text, m_private->look);
}

void CardWidget::focusFirst() {
    if (scene::ActionArea* area = m_private->targets.first())
        return area->takeKeyboard();
    m_private->hasRing = true;
    setFocus(Qt::TabFocusReason);
    update();
}

void CardWidget::paintEvent(QPaintEvent*) {
    if (!m_private->view)
        return;
    QPainter painter(this);
    if (m_private->fade.isRunning())
        m_private->fade.paint(painter, [this] { return sceneOnly(); });
    else
        paintScene(painter);
    if (m_private->hasRing && hasFocus())
        scene::drawFocusRing(painter, *this, cardCornerRadius * m_private->look.scale);
}

void CardWidget::mousePressEvent(QMouseEvent* event) {
    m_private->isPressed = event->button() == Qt::LeftButton;
}

void CardWidget::mouseReleaseEvent(QMouseEvent* event) {
    const bool isPressed = std::exchange(m_private->isPressed, false);
    if (isPressed && event->button() == Qt::LeftButton && rect().contains(event->pos()))
        openOwnLink();
}

/// The first click has opened the link, and once is enough.
void CardWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
}

void CardWidget::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space)
        openOwnLink();
    else
        QWidget::keyPressEvent(event);
}

void CardWidget::focusInEvent(QFocusEvent* event) {
    m_private->hasRing = scene::hasRingAfterFocusIn(m_private->hasRing, event->reason());
    update();
}

void CardWidget::focusOutEvent(QFocusEvent* event) {
    m_private->hasRing = scene::hasRingAfterFocusOut(m_private->hasRing, event->reason());
    update();
}

void CardWidget::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange)
        layOutWithNewFonts();
    QWidget::changeEvent(event);
}

void CardWidget::layOutWithNewFonts() {
    m_private->texts.clear();
    layOut();
}

void CardWidget::layOut() {
    if (!m_private->view)
        return;
    makeScene();
    redraw();
}

/// Nothing but the times left reads differently, and to draw all of the card would be most of the work.
void CardWidget::countDown() {
    const scene::Scene before = std::move(m_private->scene);
    makeScene();
    const auto places = scene::differences(before, m_private->scene);
    if (!places || m_private->fade.isRunning())
        return redraw();
    const QTransform scaling = QTransform::fromScale(m_private->look.scale, m_private->look.scale);
    for (const QRectF& place : *places)
        update(scaling.mapRect(place).toAlignedRect());
}

void CardWidget::makeScene() {
    m_private->laidOutAt = m_private->now;
    m_private->scene = scene::laidOut(
        *m_private->view, {m_private->look, m_private->formats, m_private->now, layoutDirection()},
        m_private->texts);
    const QSizeF size = cardSize(m_private->view->family, m_private->look.scale);
    setFixedSize(QSizeF(size).toSize());
    m_private->targets.follow(m_private->scene, m_private->look.scale);
    markPending();
}

void CardWidget::redraw() {
    m_private->fade.takeAnew();
    update();
}

void CardWidget::paintScene(QPainter& painter) const {
    painter.save();
    painter.scale(m_private->look.scale, m_private->look.scale);
    scene::paint(painter, m_private->scene, m_private->look, m_private->state);
    painter.restore();
}

QPixmap CardWidget::sceneOnly() const {
    QPixmap picture(size() * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paintScene(painter);
    return picture;
}

void CardWidget::markPending() {
    m_private->state.pendingRows.clear();
    for (const auto& reading : m_private->scene.reading) {
        const auto* target = std::get_if<scene::Target>(&reading);
        const auto* call = target == nullptr ? nullptr : std::get_if<IntentCall>(&target->action);
        if (call != nullptr && target->row && contains(m_private->pending, *call))
            m_private->state.pendingRows.push_back(*target->row);
    }
}

/// An empty card has nothing to fade from: its first view is there at once.
bool CardWidget::canFadeTo(const WidgetView& view) const {
    const bool isSameFamily = m_private->view && m_private->view->family == view.family;
    return isSameFamily && !m_private->scene.pieces.empty() && isVisible() &&
           m_private->look.motion == Motion::full;
}

void CardWidget::activate(const scene::Target& target) {
    if (const auto* url = std::get_if<Url>(&target.action))
        Q_EMIT linkActivated(*url);
    else if (const auto& intent = std::get<IntentCall>(target.action); !contains(m_private->pending, intent))
        Q_EMIT intentPressed(intent);
}

void CardWidget::openOwnLink() {
    if (m_private->view && m_private->view->content.widgetURL)
        Q_EMIT linkActivated(*m_private->view->content.widgetURL);
}

} // namespace vantel
