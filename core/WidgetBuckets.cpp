#include "core/WidgetBuckets.h"

#include <algorithm>

namespace vantel::WidgetBuckets {

namespace {

constexpr int sunday = 1;
constexpr int friday = 6;
constexpr int saturday = 7;
constexpr int recapHour = 15;
constexpr Seconds dayLength(86'400);

/// The bounds of today, found once and then compared with as plain numbers.
struct Today {
    Instant start;
    std::optional<Instant> end;

    Today(Instant at, const Calendar& calendar)
        : start(calendar.startOfDay(at))
        , end(calendar.addingDays(1, start)) {}

    bool isOverdue(const WidgetTask& task) const {
        return !task.completedAt && task.deadline && *task.deadline < start;
    }
    bool isDue(const WidgetTask& task) const {
        return !task.completedAt && task.deadline && end && *task.deadline >= start && *task.deadline < *end;
    }
    bool isDone(const WidgetTask& task) const { return task.completedAt && *task.completedAt >= start; }
};

/// What the display order looks at, apart from the task so that sorting moves little.
struct SortKey {
    bool isUndated;
    Instant deadline;
    double score;
    const WidgetTask* task;

    explicit SortKey(const WidgetTask& source)
        : isUndated(!source.deadline)
        , deadline(source.deadline.value_or(Instant()))
        , score(source.priorityScore)
        , task(&source) {}

    bool operator<(const SortKey& other) const {
        if (isUndated != other.isUndated)
            return other.isUndated;
        if (deadline != other.deadline)
            return deadline < other.deadline;
        return score > other.score;
    }
};

template <typename Condition>
Tasks inInputOrder(std::span<const WidgetTask> tasks, Condition condition) {
    Tasks kept;
    std::ranges::copy_if(tasks, std::back_inserter(kept), condition);
    return kept;
}

template <typename Condition>
Tasks inDisplayOrder(std::span<const WidgetTask> tasks, Condition condition) {
    std::vector<SortKey> keys;
    for (const WidgetTask& task : tasks)
        if (condition(task))
            keys.emplace_back(task);
    std::ranges::stable_sort(keys, std::less<>());
    Tasks sorted;
    sorted.reserve(keys.size());
    for (const SortKey& key : keys)
        sorted.push_back(*key.task);
    return sorted;
}

/// The first few of a bucket in display order, kept in order as tasks come in.
class HeadBuilder {
public:
    explicit HeadBuilder(std::size_t rows)
        : m_rows(rows) {}

    void add(const WidgetTask& task) {
        ++m_count;
        const SortKey key(task);
        if (m_keys.size() == m_rows && (m_rows == 0 || !(key < m_keys.back())))
            return;
        m_keys.insert(std::ranges::upper_bound(m_keys, key, std::less<>()), key);
        if (m_keys.size() > m_rows)
            m_keys.pop_back();
    }

    Head head() const {
        Head head{.count = m_count, .first = {}};
        for (const SortKey& key : m_keys)
            head.first.push_back(*key.task);
        return head;
    }

private:
    std::size_t m_rows;
    std::int64_t m_count = 0;
    std::vector<SortKey> m_keys;
};

/// The first task with the earliest deadline from a midnight on.
class NextDue {
public:
    explicit NextDue(Instant midnight)
        : m_midnight(midnight) {}

    void add(const WidgetTask& task) {
        if (task.completedAt || !task.deadline || *task.deadline < m_midnight)
            return;
        if (m_task == nullptr || *task.deadline < *m_task->deadline)
            m_task = &task;
    }

    std::optional<WidgetTask> task() const {
        return m_task == nullptr ? std::nullopt : std::optional(*m_task);
    }

private:
    Instant m_midnight;
    const WidgetTask* m_task = nullptr;
};

} // namespace

Tasks open(std::span<const WidgetTask> tasks) {
    return inInputOrder(tasks, [](const WidgetTask& task) { return !task.completedAt; });
}

Tasks overdue(std::span<const WidgetTask> tasks, Instant at, const Calendar& calendar) {
    const Today today(at, calendar);
    return inDisplayOrder(tasks, [&](const WidgetTask& task) { return today.isOverdue(task); });
}

Tasks dueToday(std::span<const WidgetTask> tasks, Instant at, const Calendar& calendar) {
    const Today today(at, calendar);
    return inDisplayOrder(tasks, [&](const WidgetTask& task) { return today.isDue(task); });
}

std::int64_t dueCount(std::span<const WidgetTask> tasks, Instant at, const Calendar& calendar) {
    const Today today(at, calendar);
    const auto isCounted = [&](const WidgetTask& task) { return today.isOverdue(task) || today.isDue(task); };
    return std::ranges::count_if(tasks, isCounted);
}

Tasks doneToday(std::span<const WidgetTask> tasks, Instant at, const Calendar& calendar) {
    const Today today(at, calendar);
    return inInputOrder(tasks, [&](const WidgetTask& task) { return today.isDone(task); });
}

Tasks displayOrder(std::span<const WidgetTask> tasks) {
    return inDisplayOrder(tasks, [](const WidgetTask&) { return true; });
}

Overview overview(std::span<const WidgetTask> tasks, Instant at, const Calendar& calendar, std::size_t rows) {
    const Today today(at, calendar);
    HeadBuilder overdueHead(rows);
    HeadBuilder dueHead(rows);
    NextDue next(nextMidnight(at, calendar));
    Overview overview;
    for (const WidgetTask& task : tasks) {
        if (task.completedAt)
            overview.doneTodayCount += today.isDone(task) ? 1 : 0;
        else if (today.isOverdue(task))
            overdueHead.add(task);
        else if (today.isDue(task))
            dueHead.add(task);
        else
            next.add(task);
    }
    overview.overdue = overdueHead.head();
    overview.dueToday = dueHead.head();
    overview.nextDue = next.task();
    return overview;
}

std::optional<WidgetTask> nextDue(std::span<const WidgetTask> tasks, Instant after,
                                  const Calendar& calendar) {
    NextDue next(nextMidnight(after, calendar));
    for (const WidgetTask& task : tasks)
        next.add(task);
    return next.task();
}

Instant nextMidnight(Instant after, const Calendar& calendar) {
    return calendar.addingDays(1, calendar.startOfDay(after)).value_or(after + dayLength);
}

bool isRecapTime(Instant at, const Calendar& calendar) {
    const CivilTime time = calendar.civilTime(at);
    if (time.weekday == sunday || time.weekday == saturday)
        return true;
    return time.weekday == friday && time.hour >= recapHour;
}

} // namespace vantel::WidgetBuckets
