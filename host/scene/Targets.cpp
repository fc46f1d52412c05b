#include "host/scene/Targets.h"

#include "host/scene/ActionArea.h"
#include "host/scene/SpokenText.h"

#include <algorithm>

namespace vantel::scene {

namespace {

using Reading = std::variant<Target, Spoken>;

constexpr double leastSize = 24;
constexpr double margin = 4; ///< so that the ring of the focus stands beside the letters

/// Small symbols are hard to hit; what lies around them belongs to them.
QRectF reach(const Target& target) {
    const QRectF seen = target.rectangle.adjusted(-margin, 0, margin, 0);
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

/// What tells a link or button from another. Texts have nothing of the kind: one takes the place of another.
QString identity(const Reading& reading) {
    const auto* target = std::get_if<Target>(&reading);
    if (target == nullptr)
        return {};
    if (const auto* url = std::get_if<Url>(&target->action))
        return QStringLiteral("link ") + QString::fromStdString(url->text);
    const auto& intent = std::get<IntentCall>(target->action);
    QString text = QStringLiteral("button ") + QString::fromStdString(intent.name);
    for (const auto& [name, value] : intent.parameters)
        text += QChar::Null + QString::fromStdString(value);
    return text;
}

const QString& words(const Reading& reading) {
    const auto* target = std::get_if<Target>(&reading);
    return target != nullptr ? target->label : std::get<Spoken>(reading).text;
}

std::vector<QString> identities(const Scene& scene) {
    std::vector<QString> result;
    result.reserve(scene.reading.size());
    for (const Reading& reading : scene.reading)
        result.push_back(identity(reading));
    return result;
}

} // namespace

Targets::Targets(QWidget* card)
    : QObject(card)
    , m_card(card) {}

void Targets::follow(const Scene& scene, double scale) {
    std::vector<QString> found = identities(scene);
    if (found != m_identities) {
        m_identities = std::move(found);
        rebuild(scene);
    }
    for (std::size_t i = 0; i < m_widgets.size(); ++i) {
        const QRectF points = place(scene.reading[i]);
        m_widgets[i]->setGeometry(QRectF(points.topLeft() * scale, points.size() * scale).toAlignedRect());
        if (m_widgets[i]->accessibleName() != words(scene.reading[i]))
            m_widgets[i]->setAccessibleName(words(scene.reading[i]));
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
            m_widgets.push_back(std::make_unique<SpokenText>(m_card));
        m_widgets.back()->show();
    }
}

void Targets::addArea(const Target& target) {
    auto area = std::make_unique<ActionArea>(target, m_card);
    connect(area.get(), &QAbstractButton::clicked, this, [this, target] { Q_EMIT activated(target); });
    m_widgets.push_back(std::move(area));
}

} // namespace vantel::scene
