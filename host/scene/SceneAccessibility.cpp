#include "host/scene/SceneAccessibility.h"

#include "host/scene/ActionArea.h"
#include "host/scene/CardWidget.h"
#include "host/scene/Notice.h"
#include "host/scene/SpokenText.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <tuple>

namespace vantel::scene {

namespace {

/// A link is pressed like a button; it only has another name.
class AccessibleAction final : public QAccessibleWidget {
public:
    explicit AccessibleAction(ActionArea* area)
        : QAccessibleWidget(area, isLink(*area) ? QAccessible::Link : QAccessible::Button)
        , m_area(area) {}

    QStringList actionNames() const override { return {pressAction()}; }

    void doAction(const QString& name) override {
        if (name == pressAction())
            m_area->click();
    }

    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    static bool isLink(const ActionArea& area) { return std::holds_alternative<Url>(area.target().action); }

    ActionArea* m_area;
};

/// A card holds its texts, links and buttons, and is a link itself. One that is disabled is a picture of a
/// card, where nothing can be pressed.
class AccessibleCard final : public QAccessibleWidget {
public:
    explicit AccessibleCard(CardWidget* card)
        : QAccessibleWidget(card, QAccessible::Grouping)
        , m_card(card) {}

    QAccessible::Role role() const override {
        return m_card->isEnabled() ? QAccessible::Grouping : QAccessible::Graphic;
    }

    int childCount() const override { return m_card->isEnabled() ? QAccessibleWidget::childCount() : 0; }

    QAccessibleInterface* child(int index) const override {
        return m_card->isEnabled() ? QAccessibleWidget::child(index) : nullptr;
    }

    QStringList actionNames() const override {
        return m_card->isEnabled() ? QStringList{pressAction()} + QAccessibleWidget::actionNames()
                                   : QStringList{};
    }

    void doAction(const QString& name) override {
        if (!m_card->isEnabled())
            return;
        if (name == pressAction())
            m_card->openOwnLink();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    CardWidget* m_card;
};

QAccessibleInterface* sceneInterface(const QString&, QObject* object) {
    if (auto* card = qobject_cast<CardWidget*>(object))
        return new AccessibleCard(card);
    if (auto* area = qobject_cast<ActionArea*>(object))
        return new AccessibleAction(area);
    if (auto* text = qobject_cast<SpokenText*>(object))
        return new QAccessibleWidget(text, QAccessible::StaticText);
    if (auto* notice = qobject_cast<Notice*>(object))
        return new QAccessibleWidget(notice, QAccessible::AlertMessage);
    return nullptr;
}

} // namespace

void installSceneAccessibility() {
    static const bool isInstalled = (QAccessible::installFactory(sceneInterface), true);
    std::ignore = isInstalled;
}

} // namespace vantel::scene
