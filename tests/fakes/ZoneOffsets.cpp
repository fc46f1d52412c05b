#include "tests/fakes/ZoneOffsets.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <optional>

namespace vantel::testing {

namespace {

constexpr std::int64_t hour = 3600;
constexpr std::int64_t day = 24 * hour;

std::int64_t systemOffset(std::int64_t time) {
    std::tm local{};
    ::localtime_r(&time, &local);
    return local.tm_gmtoff;
}

std::int64_t flooredDay(std::int64_t seconds) {
    return seconds >= 0 ? seconds / day : -((-seconds + day - 1) / day);
}

/// The first second after `from` whose offset is another one, which is known to have come by `until`.
std::int64_t changeBetween(std::int64_t from, std::int64_t until) {
    const std::int64_t before = systemOffset(from);
    while (until - from > 1) {
        const std::int64_t middle = from + (until - from) / 2;
        (systemOffset(middle) == before ? from : until) = middle;
    }
    return until;
}

} // namespace

ZoneOffsets::ZoneOffsets(const std::string& zoneName, std::int64_t from, std::int64_t until) {
    ::setenv("TZ", (":" + zoneName).c_str(), 1);
    ::tzset();
    m_spans.push_back({.begin = from, .end = until, .offset = systemOffset(from)});
    constexpr std::int64_t step = 7 * day;
    for (std::int64_t time = from; time + step <= until; time += step)
        appendSpansBetween(time, time + step);
}

void ZoneOffsets::appendSpansBetween(std::int64_t from, std::int64_t until) {
    while (systemOffset(until) != m_spans.back().offset) {
        const std::int64_t change = changeBetween(std::max(from, m_spans.back().begin), until);
        m_spans.push_back({.begin = change, .end = m_spans.back().end, .offset = systemOffset(change)});
        m_spans[m_spans.size() - 2].end = change;
    }
}

std::vector<std::int64_t> ZoneOffsets::transitions() const {
    std::vector<std::int64_t> result;
    for (std::size_t i = 1; i < m_spans.size(); ++i)
        result.push_back(m_spans[i].begin);
    return result;
}

std::int64_t ZoneOffsets::offsetAt(std::int64_t time) const {
    const auto holds = [&](const Span& span) { return span.begin <= time && time < span.end; };
    return std::ranges::find_if(m_spans, holds)->offset;
}

std::vector<std::int64_t> ZoneOffsets::startsAround(std::int64_t time) const {
    const std::int64_t today = flooredDay(time + offsetAt(time));
    std::vector<std::int64_t> starts;
    for (std::int64_t date = today - 2; date <= today + 3; ++date) {
        std::optional<std::int64_t> first;
        for (const Span& span : m_spans) {
            const std::int64_t begin = std::max(span.begin, date * day - span.offset);
            if (!first && begin < span.end && flooredDay(begin + span.offset) == date)
                first = begin;
        }
        if (first)
            starts.push_back(*first);
    }
    return starts;
}

std::int64_t ZoneOffsets::startOfDay(std::int64_t time) const {
    std::int64_t latest = 0;
    for (const std::int64_t start : startsAround(time))
        latest = start <= time ? start : latest;
    return latest;
}

std::int64_t ZoneOffsets::nextMidnight(std::int64_t time) const {
    const auto starts = startsAround(time);
    return *std::ranges::find_if(starts, [&](std::int64_t start) { return start > time; });
}

} // namespace vantel::testing
