#include "host/app/CardShelf.h"

#include <algorithm>

namespace vantel {

namespace {

/// What a card shows in the moment before its first view: an empty card, not a hole.
WidgetView emptyView(const WidgetKey& key, const TokenColor& background) {
    return {key.kind, key.family, {}, {{Column{}}, background}};
}

} // namespace

CardShelf::CardShelf(const Formats& formats, TokenColor emptyBackground, QObject* parent)
    : QObject(parent)
    , m_formats(formats)
    , m_emptyBackground(emptyBackground) {}

CardWidget* CardShelf::makeCard(const WidgetKey& key) {
    std::erase_if(m_cards, [](const auto& each) { return each.second.isNull(); });
    auto* card = new CardWidget(m_formats);
    card->setLook(m_look);
    card->setView(emptyView(key, m_emptyBackground));
    connect(card, &CardWidget::linkActivated, this,
            [this, card](const Url& url) { Q_EMIT linkActivated(card, url); });
    connect(card, &CardWidget::intentPressed, this,
            [this, kind = key.kind](const IntentCall& intent) { Q_EMIT intentPressed(kind, intent); });
    m_cards.emplace_back(key, card);
    return card;
}

void CardShelf::show(const WidgetKey& key, const WidgetView& view, Instant now, Arrival arrival) {
    for (const auto& [cardKey, card] : m_cards) {
        if (card.isNull() || cardKey != key)
            continue;
        card->setNow(now);
        card->setView(view, arrival);
    }
}

void CardShelf::setLook(const Look& look) {
    m_look = look;
    forEach([&](CardWidget& card) { card.setLook(look); });
}

void CardShelf::setNow(Instant now) {
    forEach([&](CardWidget& card) { card.setNow(now); });
}

std::optional<Instant> CardShelf::nextTick(Instant now) const {
    std::optional<Instant> earliest;
    forEach([&](const CardWidget& card) {
        if (const auto tick = card.nextTick(now))
            earliest = earliest ? std::min(*earliest, *tick) : *tick;
    });
    return earliest;
}

void CardShelf::setPending(const std::string& kind, const IntentCall& intent) {
    forEachOf(kind, [&](CardWidget& card) { card.setPending(intent); });
}

void CardShelf::endPending(const std::string& kind, const IntentCall& intent) {
    forEachOf(kind, [&](CardWidget& card) { card.endPending(intent); });
}

void CardShelf::showNotice(const std::string& kind, const QString& sentence) {
    forEachOf(kind, [&](CardWidget& card) { card.showNotice(sentence); });
}

template <typename Action>
void CardShelf::forEach(const Action& action) const {
    for (const auto& [key, card] : m_cards)
        if (!card.isNull())
            action(*card);
}

template <typename Action>
void CardShelf::forEachOf(const std::string& kind, const Action& action) const {
    for (const auto& [key, card] : m_cards)
        if (!card.isNull() && key.kind == kind)
            action(*card);
}

} // namespace vantel
