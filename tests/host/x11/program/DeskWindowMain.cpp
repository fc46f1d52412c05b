#include "host/surface/CardWindow.h"
#include "host/surface/X11WindowSystem.h"
#include "tests/fakes/FakeFormats.h"

#include <QApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSocketNotifier>
#include <array>
#include <iostream>
#include <string>

namespace vantel::testing {

namespace {

/// Says which keys it hears.
class PlainWindow final : public QWidget {
protected:
    void keyPressEvent(QKeyEvent* event) override {
        std::cout << "typed " << event->text().toStdString() << std::endl;
    }
};

/// One window of a colour: `card` as the desk shows it, `normal` as any program's, `desktop` as a file
/// manager's. Says "ready ID" once it is shown, and what happens to it; does what it is told line by line.
class DeskWindow {
public:
    explicit DeskWindow(std::string role)
        : m_role(std::move(role)) {}

    void show() {
        if (m_role == "card")
            return showCard();
        m_plain.setStyleSheet(m_role == "normal" ? QStringLiteral("background: #0000ff")
                                                 : QStringLiteral("background: #00ff00"));
        m_plain.setGeometry(m_role == "normal" ? QRect(150, 80, 300, 300) : QRect(0, 0, 1000, 700));
        if (m_role == "desktop")
            announceDesktop();
        m_plain.show();
        sayReady(m_plain);
    }

    void obey(const std::string& word) {
        if (word == "focus")
            m_card->takeFocus();
        if (word == "close")
            m_card->close();
        if (word == "own compositing")
            own();
        if (word == "quit")
            QCoreApplication::quit();
    }

private:
    static void say(const std::string& line) { std::cout << line << std::endl; }

    static void sayReady(const QWidget& window) { say("ready " + std::to_string(window.winId())); }

    void showCard() {
        auto* content = new QLineEdit;
        content->setFixedSize(364, 170);
        content->setStyleSheet(QStringLiteral("background: #ff0000; border: none"));
        m_windows = makeWindowSystem();
        m_card = std::make_unique<CardWindow>(content, 1, *m_windows, m_formats);
        QObject::connect(m_card.get(), &CardWindow::dragged,
                         [this](QPoint place) { m_card->moveCard(place); });
        QObject::connect(m_card.get(), &CardWindow::dropped, [] { say("dropped"); });
        QObject::connect(content, &QLineEdit::textChanged,
                         [](const QString& text) { say("typed " + text.toStdString()); });
        m_card->showCard(QGuiApplication::primaryScreen(), QPoint(60, 40));
        sayReady(*m_card);
    }

    void announceDesktop() {
        m_plain.setWindowFlags(Qt::FramelessWindowHint);
        X11Connection::ofApplication()->setAtoms(static_cast<xcb_window_t>(m_plain.winId()),
                                                 "_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DESKTOP"});
    }

    /// Pretends to blend windows, as a compositor that starts.
    void own() {
        const auto connection = X11Connection::ofApplication();
        xcb_set_selection_owner(connection->xcb(), static_cast<xcb_window_t>(m_plain.winId()),
                                connection->atom(connection->compositorSelection()), XCB_CURRENT_TIME);
        connection->flush();
        say("owned");
    }

    std::string m_role;
    PlainWindow m_plain;
    PlainFormats m_formats;
    std::unique_ptr<WindowSystem> m_windows;
    std::unique_ptr<CardWindow> m_card;
};

int run(int count, char** words) {
    const QApplication application(count, words);
    QApplication::setQuitOnLastWindowClosed(false);
    DeskWindow window(count > 1 ? words[1] : "card");
    window.show();
    const QSocketNotifier input(0, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&] {
        std::string word;
        window.obey(std::getline(std::cin, word) ? word : "quit");
    });
    return QApplication::exec();
}

} // namespace

} // namespace vantel::testing

int main(int count, char** words) {
    return vantel::testing::run(count, words);
}
