#include "host/surface/CardWindow.h"

#include "host/scene/Look.h"
#include "host/surface/CardShadow.h"
#include "host/surface/WholePixels.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QWindow>
#include <chrono>
#include <utility>

namespace vantel {

namespace {

/// A window manager that is busy takes a part of it.
constexpr std::chrono::seconds patienceForKeyboard{1};

/// The first widget in the card that the Tab key reaches, or the card.
QWidget* firstStop(QWidget* card) {
    for (QWidget* next = card; next != nullptr; next = next->nextInFocusChain()) {
        const bool isStop =
            (next->focusPolicy() & Qt::TabFocus) != 0 && next->isEnabled() && !next->isHidden();
        if (isStop && (next == card || card->isAncestorOf(next)))
            return next;
        if (next->nextInFocusChain() == card)
            break;
    }
    return card;
}

bool isKey(const QEvent& event) {
    return event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease;
}

/// It comes after its own press, and would close the menu that this has opened.
bool isSecondRightClick(const QEvent& event) {
    return event.type() == QEvent::MouseButtonDblClick &&
           static_cast<const QMouseEvent&>(event).button() == Qt::RightButton;
}

} // namespace

CardWindow::CardWindow(QWidget* card, double scale, WindowSystem& windows, const Formats& formats)
    : m_card(card)
    , m_scale(scale)
    , m_windows(windows)
    , m_formats(formats)
    , m_surface(windows.makeSurface(*this)) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    card->setParent(this);
    card->installEventFilter(this);
    layOut();
    connect(&windows, &WindowSystem::blendingChanged, this, &CardWindow::shapeCard);
    connect(&windows, &WindowSystem::managerChanged, this, &CardWindow::showAgain);
    connect(&m_drag, &CardDrag::began, this, [this] {
        m_dragOrigin = cardGeometry().topLeft();
        m_surface->lift();
    });
    connect(&m_drag, &CardDrag::moved, this,
            [this](QPoint distance) { Q_EMIT dragged(m_dragOrigin + distance); });
    connect(&m_drag, &CardDrag::ended, this, &CardWindow::dropped);
}

CardWindow::~CardWindow() = default;

QPoint CardWindow::shadowOffset() const {
    const int reach = shadowReach(m_scale);
    return {reach, reach};
}

QRect CardWindow::cardGeometry() const {
    return m_card->geometry().translated(m_surface->position());
}

void CardWindow::setScale(double scale) {
    const QPoint position = cardGeometry().topLeft();
    m_scale = scale;
    layOut();
    if (m_isPlaced)
        moveCard(position);
}

void CardWindow::layOut() {
    const QSize margins(2 * shadowReach(m_scale), 2 * shadowReach(m_scale));
    m_card->move(shadowOffset());
    setFixedSize(inWholePixels(m_card->size() + margins));
    shapeCard();
}

void CardWindow::shapeCard() {
    m_surface->setCardShape({m_card->geometry(), cardCornerRadius * m_scale});
    update();
}

void CardWindow::showCard(QScreen* screen, QPoint position) {
    m_screen = screen;
    m_isPlaced = true;
    m_surface->show(screen, position - shadowOffset());
}

void CardWindow::moveCard(QPoint position) {
    m_surface->move(position - shadowOffset());
}

void CardWindow::hideCard() {
    m_isPlaced = false;
    m_surface->hide();
}

void CardWindow::settleCard(QScreen* screen) {
    m_screen = screen;
    m_surface->settle(screen);
}

void CardWindow::showAgain() {
    if (m_isPlaced)
        m_surface->show(m_screen, m_surface->position());
}

void CardWindow::takeFocus() {
    m_hasTakenFocus = true;
    m_isKeyboardAwaited = !m_surface->hasKeyboard();
    clearFocusOfCard();
    m_surface->takeFocus();
    firstStop(m_card)->setFocus(Qt::TabFocusReason);
    Q_EMIT focusTaken();
}

void CardWindow::giveFocusBack() {
    if (!std::exchange(m_hasTakenFocus, false))
        return;
    clearFocusOfCard();
    m_surface->giveFocusBack();
}

/// The window system says only that the window is active, which is no reason for a ring. Whoever asked for
/// the keyboard walks with it.
void CardWindow::showFocus() {
    m_isKeyboardAwaited = false;
    QWidget* focused = focusWidget();
    if (m_hasTakenFocus && focused != nullptr)
        focused->setFocus(Qt::TabFocusReason);
}

/// The toolkit speaks of it only after 0.4 seconds, in case that another window of ours gets the keyboard.
/// Meanwhile it may have been asked for anew, and be on its way.
void CardWindow::loseFocus() {
    if (std::exchange(m_isKeyboardAwaited, false))
        QTimer::singleShot(patienceForKeyboard, this, &CardWindow::noticeLoss);
    else
        giveFocusBack();
}

void CardWindow::clearFocusOfCard() {
    if (QWidget* focused = focusWidget())
        focused->clearFocus();
}

/// While a menu is open, the toolkit does not notice that the keyboard goes to another program.
void CardWindow::noticeLoss() {
    if (!m_surface->hasKeyboard())
        giveFocusBack();
}

void CardWindow::openMenu(QPoint position) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    fillWidgetMenu(*menu, m_choice, m_hasTakenFocus ? KeyboardUse::now : KeyboardUse::none,
                   {.family = [this](WidgetFamily family) { Q_EMIT familyChosen(family); },
                    .command = [this](MenuCommand command) { Q_EMIT commandChosen(command); }},
                   m_formats);
    if (m_hasTakenFocus)
        connect(menu, &QMenu::aboutToHide, this, &CardWindow::noticeLoss, Qt::QueuedConnection);
    m_surface->openMenu(*menu, position);
}

bool CardWindow::event(QEvent* event) {
    if (event->type() == QEvent::WinIdChange && windowHandle() != nullptr) {
        m_drag.watch(windowHandle());
        windowHandle()->installEventFilter(this);
    }
    return QWidget::event(event);
}

bool CardWindow::eventFilter(QObject* watched, QEvent* event) {
    const bool isUnasked = !m_hasTakenFocus && QApplication::activePopupWidget() == nullptr;
    if (watched == windowHandle() && ((isKey(*event) && isUnasked) || isSecondRightClick(*event)))
        return true;
    if (watched == m_card && event->type() == QEvent::Resize) {
        layOut();
        Q_EMIT cardResized();
    }
    return QWidget::eventFilter(watched, event);
}

void CardWindow::paintEvent(QPaintEvent*) {
    if (m_windows.blending() == Blending::none)
        return;
    QPainter painter(this);
    drawCardShadow(painter, m_card->geometry(), m_scale);
}

void CardWindow::contextMenuEvent(QContextMenuEvent* event) {
    const bool isFromKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    openMenu(isFromKeyboard ? m_card->geometry().center() : event->pos());
}

void CardWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        return giveFocusBack();
    QWidget::keyPressEvent(event);
}

void CardWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange)
        isActiveWindow() ? showFocus() : loseFocus();
    QWidget::changeEvent(event);
}

void CardWindow::closeEvent(QCloseEvent* event) {
    // A window manager may close the window, but removing the widget is the menu's business. While the
    // program quits, nothing that is queued here is heard any more.
    m_surface->hide();
    QTimer::singleShot(0, this, &CardWindow::showAgain);
    QWidget::closeEvent(event);
}

} // namespace vantel
