#pragma once

#include "hosting/WidgetBundle.h"
#include "platform/Formats.h"

#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>
#include <functional>

namespace vantel {

class GalleryTile;

/// Shows every widget that a bundle declares, with its name, its description and a preview in each of its
/// sizes. A click or Enter on a preview chooses it, which is said at the foot of the window, wherever the
/// rest is scrolled to; Tab and the arrow keys walk them; Escape closes.
class GalleryWindow final : public QWidget {
    Q_OBJECT

public:
    /// Makes a preview of a fixed size. The gallery owns it.
    using MakePreview = std::function<QWidget*(const StaticConfiguration&, WidgetFamily)>;

    /// The bundle and the formats outlive the gallery.
    GalleryWindow(const WidgetBundle& bundle, const Formats& formats, const MakePreview& makePreview,
                  double scale = 1, QWidget* parent = nullptr);

    QSize sizeHint() const override;

Q_SIGNALS:
    void chosen(const std::string& kind, vantel::WidgetFamily family);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void layOut();
    QWidget* makeScrollArea();
    void tellOfPointer();
    QWidget* makeFoot();
    QLayout* makeHead();
    QLayout* makeSection(const StaticConfiguration& configuration, const MakePreview& makePreview);
    QLayout* makeTile(const StaticConfiguration& configuration, WidgetFamily family, QWidget* preview);
    QVBoxLayout* makeSections(const WidgetBundle& bundle, const MakePreview& makePreview);
    QLabel* makeText(const QString& text, double size, int weight);
    QLabel* makeQuietText(const QString& text, double size);
    void choose(const StaticConfiguration& configuration, WidgetFamily family);
    void quieten();
    QString translated(const std::string& key) const;
    int points(double length) const;

    const Formats& m_formats;
    double m_scale;
    std::vector<QLabel*> m_quietTexts;
    QWidget* m_content;
    QWidget* m_foot = nullptr;
    QLabel* m_news = nullptr; ///< at the foot: what was put on the desktop last
};

} // namespace vantel
