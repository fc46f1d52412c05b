#pragma once

#include "host/WidgetKey.h"
#include "host/scene/CardWidget.h"

#include <QObject>
#include <QPointer>
#include <utility>
#include <vector>

namespace vantel {

/// All cards on the desktop, whoever owns them: what holds for one of a kind holds for each. Cards that are
/// deleted leave by themselves.
class CardShelf final : public QObject {
    Q_OBJECT

public:
    /// The formats outlive the cards.
    CardShelf(const Formats& formats, TokenColor emptyBackground, QObject* parent = nullptr);

    /// A new card, empty until its view comes. The caller owns it.
    CardWidget* makeCard(const WidgetKey& key);

    void show(const WidgetKey& key, const WidgetView& view, Instant now, Arrival arrival);
    void setLook(const Look& look);
    const Look& look() const { return m_look; }

    /// The moment from which all times left are counted.
    void setNow(Instant now);

    /// The earliest moment at which one of them reads differently; absent for none.
    std::optional<Instant> nextTick(Instant now) const;

    void setPending(const std::string& kind, const IntentCall& intent);
    void endPending(const std::string& kind, const IntentCall& intent);

    /// Says a sentence on the cards of a kind.
    void showNotice(const std::string& kind, const QString& sentence);

Q_SIGNALS:
    /// The card may be gone before anything has come of it.
    void linkActivated(vantel::CardWidget* card, const vantel::Url& url);
    void intentPressed(const std::string& kind, const vantel::IntentCall& intent);

private:
    template <typename Action>
    void forEach(const Action& action) const;
    template <typename Action>
    void forEachOf(const std::string& kind, const Action& action) const;

    const Formats& m_formats;
    TokenColor m_emptyBackground;
    Look m_look;
    std::vector<std::pair<WidgetKey, QPointer<CardWidget>>> m_cards;
};

} // namespace vantel
