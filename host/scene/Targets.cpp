#include "host/scene/Targets.h"

#include "host/scene/ActionArea.h"
#include "host/scene/SpokenText.h"

#include <algorithm>

namespace vantel::scene {

namespace {

using Reading = std::variant<Target, Spoken>;

constexpr double leastSize = 24;

/// Small symbols are hard to hit; what lies around them belongs to them.
QRectF reach(const Target& target) {
    const QRectF& seen = target.rectangle;
    const double width = std::max(leastSize, seen.width());
    const double height = std::max(leastSize, seen.height());
    QRectF area(0, 0, width, height);
    area.moveCenter(seen.center());
    return area;
}

QRectF place(const Reading& reading) {
    if (const auto* target = std::get_if<Target>(&reading))
        return reach(*target);
    return std::get<Spoken>(reading).rectangle;
}

/// What tells a link or text from another of another view: its words, and what it does.
QString identity(const Reading& reading) {
    const auto* target = std::get_if<Target>(&reading);
    if (target == nullptr)
        return std::get<Spoken>(reading).text;
    QString text = target->label;
    if (const auto* url = std::get_if<Url>(&target->action))
        return text + QChar::Null + QString::fromStdString(url->text);
    const auto& intent = std::get<IntentCall>(target->action);
    text += QChar::Null + QString::fromStdString(intent.name);
    for (const auto& [name, value] : intent.parameters)
        text += QChar::Null + QString::fromStdString(value);
    return text;
}

std::vector<QString> identities(const Scene& scene) {
    std::vector<QString> result;
    for (const Reading& reading : scene.reading)
        result.push_back(identity(reading));
    return result;
}

} // namespace

Targets::Targets(QWidget* card)
    : QObject(card)
    , m_card(card) {}

void Targets::follow(const Scene& scene, double scale) {
    std::vector<QString> words = identities(scene);
    if (words != m_words) {
        m_words = std::move(words);
        rebuild(scene);
    }
    for (std::size_t i = 0; i < m_widgets.size(); ++i) {
        const QRectF points = place(scene.reading[i]);
        m_widgets[i]->setGeometry(QRectF(points.topLeft() * scale, points.size() * scale).toAlignedRect());
    }
}

ActionArea* Targets::first() const {
    for (const auto& widget : m_widgets)
        if (auto* area = qobject_cast<ActionArea*>(widget.get()))
            return area;
    return nullptr;
}

void Targets::rebuild(const Scene& scene) {
    for (auto& widget : m_widgets)
        widget.release()->deleteLater();
    m_widgets.clear();
    for (const Reading& reading : scene.reading) {
        if (const auto* target = std::get_if<Target>(&reading))
            addArea(*target);
        else
            m_widgets.push_back(std::make_unique<SpokenText>(std::get<Spoken>(reading).text, m_card));
        m_widgets.back()->show();
    }
}

void Targets::addArea(const Target& target) {
    auto area = std::make_unique<ActionArea>(target, m_card);
    connect(area.get(), &QAbstractButton::clicked, this, [this, target] { Q_EMIT activated(target); });
    m_widgets.push_back(std::move(area));
}

} // namespace vantel::scene
