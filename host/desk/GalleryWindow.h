#pragma once

#include "hosting/WidgetBundle.h"
#include "platform/Formats.h"

#include <QLabel>
#include <QScrollArea>
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

    /// The bundle and the formats outlive the gallery, and so does what `makePreview` refers to.
    GalleryWindow(const WidgetBundle& bundle, const Formats& formats, MakePreview makePreview,
                  double scale = 1, QWidget* parent = nullptr);

    /// Makes all previews anew for another scale. The window stays where it is, as it is.
    void setScale(double scale);

    QSize sizeHint() const override;

Q_SIGNALS:
    void chosen(const std::string& kind, vantel::WidgetFamily family);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void layOut();
    QWidget* makeContent();
    QScrollArea* makeScrollArea();
    qsizetype focusedTile() const;
    void focusTile(qsizetype index);
    void tellOfPointer();
    QWidget* makeFoot();
    QLayout* makeHead();
    QLayout* makeSection(const StaticConfiguration& configuration);
    QLayout* makeTile(const StaticConfiguration& configuration, WidgetFamily family, QWidget* preview);
    QVBoxLayout* makeSections();
    QLabel* makeText(const QString& text, double size, int weight);
    QLabel* makeQuietText(const QString& text, double size);
    void choose(const StaticConfiguration& configuration, WidgetFamily family);
    void tell(const QString& news);
    void quieten();
    QString translated(const std::string& key) const;
    int points(double length) const;

    const WidgetBundle& m_bundle;
    const Formats& m_formats;
    MakePreview m_makePreview;
    double m_scale;
    std::vector<QLabel*> m_quietTexts;
    QScrollArea* m_scroll = nullptr;
    QWidget* m_foot = nullptr;
    QLabel* m_news = nullptr; ///< at the foot: what was put on the desktop last
};

} // namespace vantel
