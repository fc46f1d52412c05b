#include "widgets/grouptoday/GroupRows.h"

#include "widgets/WidgetFormat.h"

#include <algorithm>
#include <functional>

namespace vantel {

namespace {

using Item = WidgetHorizonItem;
using Kind = WidgetHorizonItem::Kind;
using ItemList = std::vector<std::reference_wrapper<const Item>>;

constexpr std::size_t rowLimit = 3;
constexpr int daysAhead = 7;

bool isContract(const Item& item) {
    return item.kind == Kind::personDate && item.label.contains("contract");
}

ItemList candidates(const WidgetSnapshot& snapshot, Instant today) {
    ItemList items;
    for (const Item& item : snapshot.horizon)
        if (item.endDay.value_or(item.day) >= today)
            items.emplace_back(item);
    std::ranges::stable_sort(items, {}, &Item::day);
    return items;
}

/// Collects rows in order, one an item, until there are enough.
class RowList {
public:
    RowList(Instant now, const Calendar& calendar, const Formats& formats)
        : m_now(now)
        , m_calendar(calendar)
        , m_formats(formats) {}

    void addContract(const Item& item) { add(dated(item, "flag", true)); }
    void addPerson(const Item& item) { add(dated(item, "person", false)); }
    void addDeadline(const Item& item) { add(dated(item, "flag", false)); }

    void addAbsence(const Item& item) {
        std::string text = item.label;
        if (item.endDay)
            text = filled(m_formats.translated("%s · until %s"),
                          {text, WidgetFormat::weekday(*item.endDay, m_calendar, m_formats)});
        add({item.id, "sun.max", std::move(text), std::nullopt, false});
    }

    std::vector<GroupRow> rows() && { return std::move(m_rows); }

private:
    GroupRow dated(const Item& item, std::string_view glyph, bool isFlagged) const {
        return {item.id, glyph, item.subject + " · " + item.label,
                WidgetFormat::relativeDays(m_now, item.day, m_calendar, m_formats), isFlagged};
    }

    void add(GroupRow row) {
        if (m_rows.size() < rowLimit && std::ranges::find(m_rows, row.id, &GroupRow::id) == m_rows.end())
            m_rows.push_back(std::move(row));
    }

    Instant m_now;
    const Calendar& m_calendar;
    const Formats& m_formats;
    std::vector<GroupRow> m_rows;
};

void addUpcoming(RowList& rows, const Item& item) {
    if (item.kind == Kind::personDate && !isContract(item))
        rows.addPerson(item);
    else if (item.kind == Kind::grantDeadline)
        rows.addDeadline(item);
}

} // namespace

std::vector<GroupRow> buildRows(const WidgetSnapshot& snapshot, Instant now, const Calendar& calendar,
                                const Formats& formats) {
    const Instant today = calendar.startOfDay(now);
    const auto weekEnd = calendar.addingDays(daysAhead, today);
    const ItemList items = candidates(snapshot, today);
    RowList rows(now, calendar, formats);
    for (const Item& item : items)
        if (isContract(item))
            rows.addContract(item);
    for (const Item& item : items)
        if (item.kind == Kind::absence && item.day <= today)
            rows.addAbsence(item);
    for (const Item& item : items)
        if (weekEnd && item.day <= *weekEnd)
            addUpcoming(rows, item);
    return std::move(rows).rows();
}

std::string groupFooterText(const WidgetSnapshot& snapshot, const Formats& formats) {
    const std::size_t count = snapshot.horizon.size();
    if (count == 1)
        return formats.translated("1 date in 30 days");
    return filled(formats.translated("%lld dates in 30 days"), {std::to_string(count)});
}

} // namespace vantel
