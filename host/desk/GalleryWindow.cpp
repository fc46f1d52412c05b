#include "host/desk/GalleryWindow.h"

#include "host/desk/Arrangement.h"
#include "host/desk/GalleryTile.h"
#include "host/scene/Look.h"
#include "host/surface/CardShadow.h"
#include "host/surface/WidgetMenu.h"

#include <QAccessible>
#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <utility>

namespace vantel {

namespace {

constexpr double edgePoints = 40;
constexpr double sectionGap = 36;
constexpr float quietOpacity = 0.66F;
constexpr double largestShareOfScreen = 0.85;

/// The sheet on which the tiles lie, with a shadow under each card.
class GallerySheet final : public QWidget {
public:
    explicit GallerySheet(double scale)
        : m_scale(scale) {}

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        for (const auto* tile : findChildren<const GalleryTile*>())
            drawCardShadow(painter, tile->card().translated(tile->mapTo(this, QPoint())), m_scale);
    }

private:
    double m_scale;
};

/// The width that the section of a widget takes: its cards beside each other.
double widthOf(const StaticConfiguration& configuration, double scale) {
    double width = 0;
    for (const WidgetFamily family : configuration.supportedFamilies)
        width += cardSize(family, scale).width() + (width > 0 ? cardGap(scale) : 0);
    return width;
}

/// A small card and a medium one.
double rowWidth(double scale) {
    return cardSize(WidgetFamily::systemSmall, scale).width() + cardGap(scale) +
           cardSize(WidgetFamily::systemMedium, scale).width();
}

} // namespace

GalleryWindow::GalleryWindow(const WidgetBundle& bundle, const Formats& formats, MakePreview makePreview,
                             double scale, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_bundle(bundle)
    , m_formats(formats)
    , m_makePreview(std::move(makePreview))
    , m_scale(scale) {
    setWindowTitle(QString::fromStdString(formats.translated("Add widgets")));
    layOut();
    resize(sizeHint());
}

/// All of it is laid out anew, and what the user has done in it is kept.
void GalleryWindow::setScale(double scale) {
    if (scale == m_scale)
        return;
    const int scrolled = m_scroll->verticalScrollBar()->value();
    const qsizetype focused = focusedTile();
    const QString news = m_news->text();
    const double growth = scale / m_scale;
    m_scale = scale;
    layOut();
    tell(news);
    const QPoint room = screen()->availableGeometry().bottomRight() - frameGeometry().bottomRight();
    const QSize largest = size() + QSize(std::max(0, room.x()), std::max(0, room.y()));
    resize((QSizeF(size()) * growth).toSize().boundedTo(largest));
    focusTile(focused);
    m_scroll->verticalScrollBar()->setValue(static_cast<int>(scrolled * growth));
}

qsizetype GalleryWindow::focusedTile() const {
    const auto tiles = m_scroll->findChildren<GalleryTile*>();
    const auto found = std::ranges::find_if(tiles, &QWidget::hasFocus);
    return found == tiles.end() ? -1 : std::distance(tiles.begin(), found);
}

void GalleryWindow::focusTile(qsizetype index) {
    const auto tiles = m_scroll->findChildren<GalleryTile*>();
    if (index >= 0 && index < tiles.size())
        tiles[index]->setFocus();
}

QWidget* GalleryWindow::makeContent() {
    auto* content = new GallerySheet(m_scale);
    auto* page = new QVBoxLayout(content);
    const int edge = points(edgePoints);
    const int room = GalleryTile::ringRoom(m_scale);
    page->setContentsMargins(edge - room, edge - points(8), edge - room, edge);
    page->setSpacing(points(sectionGap));
    page->addLayout(makeHead());
    page->addLayout(makeSections());
    page->addStretch();
    return content;
}

void GalleryWindow::layOut() {
    delete m_scroll;
    delete m_foot;
    delete layout();
    m_quietTexts.clear();
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    m_scroll = makeScrollArea();
    all->addWidget(m_scroll);
    m_foot = makeFoot();
    all->addWidget(m_foot);
    m_foot->hide();
    quieten();
}

QScrollArea* GalleryWindow::makeScrollArea() {
    auto* scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(makeContent());
    connect(scroll->verticalScrollBar(), &QScrollBar::valueChanged, this, &GalleryWindow::tellOfPointer);
    return scroll;
}

/// What comes under the pointer because it scrolls would hear of it only when the pointer moves.
void GalleryWindow::tellOfPointer() {
    if (!underMouse() || QGuiApplication::mouseButtons() != Qt::NoButton)
        return;
    const QPointF global = QCursor::pos();
    const QPointF local = mapFromGlobal(global);
    QMouseEvent move(QEvent::MouseMove, local, local, global, Qt::NoButton, Qt::NoButton,
                     QGuiApplication::keyboardModifiers());
    QCoreApplication::sendEvent(windowHandle(), &move);
}

QWidget* GalleryWindow::makeFoot() {
    auto* foot = new QWidget;
    auto* column = new QVBoxLayout(foot);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Plain);
    line->setForegroundRole(QPalette::Mid);
    column->addWidget(line);
    m_news = makeText({}, 13, QFont::DemiBold);
    const int side = points(edgePoints);
    m_news->setContentsMargins(side, points(12), side, points(12));
    column->addWidget(m_news);
    return foot;
}

QString GalleryWindow::translated(const std::string& key) const {
    return QString::fromStdString(m_formats.translated(key.c_str()));
}

int GalleryWindow::points(double length) const {
    return static_cast<int>(std::lround(length * m_scale));
}

QLayout* GalleryWindow::makeHead() {
    auto* head = new QVBoxLayout;
    head->setSpacing(points(4));
    head->addWidget(makeText(windowTitle(), 22, QFont::Bold));
    head->addWidget(makeQuietText(
        QString::fromStdString(m_formats.translated("Choose one to put it on the desktop.")), 13));
    return head;
}

QVBoxLayout* GalleryWindow::makeSections() {
    auto* sections = new QVBoxLayout;
    sections->setSpacing(points(sectionGap));
    QHBoxLayout* row = nullptr;
    double used = 0;
    for (const StaticConfiguration& configuration : m_bundle.widgets) {
        const double width = widthOf(configuration, m_scale);
        used += width + cardGap(m_scale);
        if (row == nullptr || used > rowWidth(m_scale)) {
            row = new QHBoxLayout;
            row->setSpacing(cardGap(m_scale) - 2 * GalleryTile::ringRoom(m_scale));
            sections->addLayout(row);
            used = width;
        } else {
            row->takeAt(row->count() - 1);
        }
        row->addLayout(makeSection(configuration));
        row->addStretch();
    }
    return sections;
}

QLayout* GalleryWindow::makeSection(const StaticConfiguration& configuration) {
    auto* section = new QVBoxLayout;
    const int room = GalleryTile::ringRoom(m_scale);
    section->setSpacing(points(2));
    section->addWidget(makeText(translated(configuration.displayName), 15, QFont::DemiBold));
    QLabel* description = makeQuietText(translated(configuration.description), 12);
    description->setFixedWidth(static_cast<int>(widthOf(configuration, m_scale)) + 2 * room);
    section->addWidget(description);
    section->addStretch();
    auto* tiles = new QHBoxLayout;
    tiles->setContentsMargins(0, points(8), 0, 0);
    tiles->setSpacing(cardGap(m_scale) - 2 * room);
    for (const WidgetFamily family : configuration.supportedFamilies)
        tiles->addLayout(makeTile(configuration, family, m_makePreview(configuration, family)));
    tiles->addStretch();
    section->addLayout(tiles);
    return section;
}

QLayout* GalleryWindow::makeTile(const StaticConfiguration& configuration, WidgetFamily family,
                                 QWidget* preview) {
    auto* tile = new GalleryTile(preview, m_scale);
    const QString size = familyText(family, m_formats);
    tile->setAccessibleName(translated(configuration.displayName) + QStringLiteral(", ") + size);
    tile->setAccessibleDescription(
        QString::fromStdString(m_formats.translated("Puts this widget on the desktop")));
    connect(tile, &GalleryTile::clicked, this,
            [this, &configuration, family] { choose(configuration, family); });
    auto* column = new QVBoxLayout;
    column->setSpacing(points(4));
    column->addWidget(tile, 0, Qt::AlignTop);
    QLabel* caption = makeQuietText(size, 11);
    caption->setAlignment(Qt::AlignHCenter);
    column->addWidget(caption);
    return column;
}

QLabel* GalleryWindow::makeText(const QString& text, double size, int weight) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    // A label is aligned as its letters run, and a name of Latin letters would stand apart from its card.
    label->setAlignment(Qt::AlignAbsolute | (isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft) |
                        Qt::AlignVCenter);
    const int room = GalleryTile::ringRoom(m_scale);
    label->setContentsMargins(room, 0, room, 0);
    QFont font = label->font();
    font.setPointSizeF(size * m_scale * 72 / logicalDpiY());
    font.setWeight(static_cast<QFont::Weight>(weight));
    label->setFont(font);
    return label;
}

QLabel* GalleryWindow::makeQuietText(const QString& text, double size) {
    QLabel* label = makeText(text, size, QFont::Normal);
    m_quietTexts.push_back(label);
    return label;
}

void GalleryWindow::quieten() {
    QPalette quiet = palette();
    QColor color = quiet.color(QPalette::WindowText);
    color.setAlphaF(quietOpacity);
    quiet.setColor(QPalette::WindowText, color);
    for (QLabel* label : m_quietTexts)
        label->setPalette(quiet);
}

void GalleryWindow::choose(const StaticConfiguration& configuration, WidgetFamily family) {
    const std::string name = m_formats.translated(configuration.displayName.c_str());
    tell(QString::fromStdString(filled(m_formats.translated("%s is now on the desktop."), {name})));
    QAccessibleEvent alert(m_news, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
    Q_EMIT chosen(configuration.kind, family);
}

void GalleryWindow::tell(const QString& news) {
    m_news->setText(news);
    m_foot->setVisible(!news.isEmpty());
}

/// Wide enough that nothing has to be scrolled sideways, and not quite as high as the screen.
QSize GalleryWindow::sizeHint() const {
    const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent) +
                          style()->pixelMetric(QStyle::PM_ScrollView_ScrollBarSpacing);
    const QSize wanted = m_scroll->widget()->sizeHint() + QSize(scrollBar, 0);
    const QSize available = screen()->availableSize();
    return wanted.boundedTo({available.width(), static_cast<int>(available.height() * largestShareOfScreen)});
}

void GalleryWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void GalleryWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange)
        quieten();
    QWidget::changeEvent(event);
}

} // namespace vantel
