#include "platform/SpanFormat.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <unicode/measunit.h>

namespace vantel {

SpanFormat::SpanFormat(icu::Locale locale)
    : m_locale(std::move(locale)) {}

icu::UnicodeString SpanFormat::text(Seconds left) {
    std::vector<icu::UnicodeString> texts;
    for (const Part& part : parts(left))
        texts.push_back(counted(part));
    return listed(texts);
}

std::vector<SpanFormat::Part> SpanFormat::parts(Seconds left) {
    constexpr double longest = 1e9 * 3600;
    const double total = std::isnan(left.count()) ? 0 : std::clamp(std::ceil(left.count()), 0.0, longest);
    if (total < 60)
        return {{static_cast<int>(total), Unit::second}};
    const auto minutes = static_cast<std::int64_t>(std::ceil(total / 60));
    std::vector<Part> result;
    if (minutes >= 60)
        result.push_back({static_cast<int>(minutes / 60), Unit::hour});
    if (minutes % 60 != 0)
        result.push_back({static_cast<int>(minutes % 60), Unit::minute});
    return result;
}

icu::number::LocalizedNumberFormatter SpanFormat::newCounter(Unit unit) const {
    const std::array units{icu::MeasureUnit::getSecond(), icu::MeasureUnit::getMinute(),
                           icu::MeasureUnit::getHour()};
    return icu::number::NumberFormatter::withLocale(m_locale)
        .unit(units[static_cast<std::size_t>(unit)])
        .unitWidth(UNUM_UNIT_WIDTH_SHORT)
        .grouping(UNUM_GROUPING_ON_ALIGNED);
}

icu::UnicodeString SpanFormat::counted(const Part& part) {
    UErrorCode status = U_ZERO_ERROR;
    auto& counter = m_counters[static_cast<std::size_t>(part.unit)];
    if (!counter)
        counter = newCounter(part.unit);
    return counter->formatInt(part.count, status).toString(status);
}

icu::UnicodeString SpanFormat::listed(const std::vector<icu::UnicodeString>& texts) {
    if (texts.size() == 1)
        return texts.front();
    UErrorCode status = U_ZERO_ERROR;
    if (!m_list)
        m_list.reset(
            icu::ListFormatter::createInstance(m_locale, ULISTFMT_TYPE_UNITS, ULISTFMT_WIDTH_SHORT, status));
    icu::UnicodeString text;
    if (m_list)
        m_list->format(texts.data(), static_cast<int32_t>(texts.size()), text, status);
    return text;
}

} // namespace vantel
