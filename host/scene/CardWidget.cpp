#include "host/scene/CardWidget.h"

#include "host/scene/ActionArea.h"
#include "host/scene/Countdown.h"
#include "host/scene/FocusRing.h"
#include "host/scene/Notice.h"
#include "host/scene/SceneAccessibility.h"
#include "host/scene/ScenePainter.h"
#include "host/scene/Targets.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QVariantAnimation>
#include <algorithm>
#include <utility>

namespace vantel {

namespace {

constexpr int fadeMilliseconds = 200;

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
        , notice(card) {}

    const Formats& formats;
    scene::Targets targets;
    scene::Notice notice;
    QVariantAnimation fade;
    QPixmap before; ///< what a fading card showed until now
    std::optional<WidgetView> view;
    Look look;
    Instant now{};
    Instant laidOutAt{};
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
    m_private->fade.setDuration(fadeMilliseconds);
    m_private->fade.setStartValue(1.0);
    m_private->fade.setEndValue(0.0);
    connect(&m_private->fade, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(&m_private->fade, &QVariantAnimation::finished, this, [this] { m_private->before = {}; });
    connect(&m_private->targets, &scene::Targets::activated, this, &CardWidget::activate);
}

CardWidget::~CardWidget() {
    m_private->fade.stop();
}

void CardWidget::setView(const WidgetView& view) {
    if (m_private->view && showsTheSame(*m_private->view, view))
        return;
    if (canFadeTo(view))
        startFade();
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
        update();
    else
        layOut();
}

void CardWidget::setNow(Instant now) {
    m_private->now = now;
    const auto tick = scene::nextTick(m_private->scene.countdowns, m_private->laidOutAt);
    const bool isClockBack = now < m_private->laidOutAt && !m_private->scene.countdowns.empty();
    if ((tick && *tick <= now) || isClockBack)
        layOut();
}

std::optional<Instant> CardWidget::nextTick(Instant now) const {
    return scene::nextTick(m_private->scene.countdowns, now);
}

void CardWidget::setPending(const IntentCall& intent) {
    m_private->pending.push_back(intent);
    markPending();
    update();
}

void CardWidget::endPending(const IntentCall& intent) {
    std::erase(m_private->pending, intent);
    markPending();
    update();
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
    painter.save();
    painter.scale(m_private->look.scale, m_private->look.scale);
    scene::paint(painter, m_private->scene, m_private->look, m_private->state);
    painter.restore();
    if (!m_private->before.isNull()) {
        painter.setOpacity(m_private->fade.currentValue().toDouble());
        painter.drawPixmap(0, 0, m_private->before);
        painter.setOpacity(1);
    }
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

void CardWidget::layOut() {
    if (!m_private->view)
        return;
    m_private->laidOutAt = m_private->now;
    m_private->scene = scene::laidOut(
        *m_private->view, {m_private->look, m_private->formats, m_private->now, layoutDirection()});
    const QSizeF size = cardSize(m_private->view->family, m_private->look.scale);
    setFixedSize(QSizeF(size).toSize());
    m_private->targets.follow(m_private->scene, m_private->look.scale);
    markPending();
    update();
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

void CardWidget::startFade() {
    m_private->fade.stop();
    m_private->before = QPixmap(size() * devicePixelRatioF());
    m_private->before.setDevicePixelRatio(devicePixelRatioF());
    m_private->before.fill(Qt::transparent);
    QPainter painter(&m_private->before);
    painter.scale(m_private->look.scale, m_private->look.scale);
    scene::paint(painter, m_private->scene, m_private->look, m_private->state);
    painter.end();
    m_private->fade.start();
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
