#include <QApplication>
#include <QLabel>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

/// A rectangle in the notation of X11: 364x170+10+20.
QRect rectangle(const char* text) {
    int width = 0;
    int height = 0;
    int left = 0;
    int top = 0;
    std::sscanf(text, "%dx%d+%d+%d", &width, &height, &left, &top);
    return {left, top, width, height};
}

std::unique_ptr<QLabel> shownWindow(const QRect& geometry) {
    auto window = std::make_unique<QLabel>(QStringLiteral("Hello"));
    window->setWindowFlags(Qt::FramelessWindowHint);
    window->setAttribute(Qt::WA_ShowWithoutActivating);
    window->setGeometry(geometry);
    window->show();
    return window;
}

} // namespace

/// The least that windows on the desktop cost with this toolkit: each shows one word and waits.
int main(int count, char** words) {
    const QApplication application(count, words);
    std::vector<std::unique_ptr<QLabel>> windows;
    for (int i = 1; i < count; ++i)
        windows.push_back(shownWindow(rectangle(words[i])));
    return QApplication::exec();
}
