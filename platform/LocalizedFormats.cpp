#include "platform/LocalizedFormats.h"

#include "platform/IcuLocale.h"
#include "platform/IcuTables.h"
#include "platform/MessageDomain.h"
#include "platform/SpanFormat.h"

#include <array>
#include <mutex>

#include <libintl.h>
#include <unicode/casemap.h>
#include <unicode/dtptngen.h>
#include <unicode/gregocal.h>
#include <unicode/smpdtfmt.h>

namespace vantel {

namespace {

bool isEnglish(const icu::Locale& locale) {
    return std::string_view(locale.getLanguage()) == "en";
}

/// English puts the weekday first and a comma before the month; its raw patterns differ between releases of
/// the locale data ("14 Fri", "Wed 19 Nov").
icu::UnicodeString englishPattern(icu::DateTimePatternGenerator& patterns, DateFields fields,
                                  UErrorCode& status) {
    if (fields == DateFields::weekdayDay)
        return u"EEE d";
    return u"EEE, " + patterns.getBestPattern(u"MMMd", status);
}

/// All of English abbreviates units alike here; some of its regions would write "40 mins".
icu::Locale spanLocale(const icu::Locale& locale) {
    return isEnglish(locale) ? icu::Locale("en") : locale;
}

/// The Unicode library looks for the zone of this machine before it makes a format, in all files of zones if
/// need be. Civil times have no zone, so it is told one.
void forgetZone() {
    static std::once_flag isDone;
    std::call_once(isDone, [] { icu::TimeZone::adoptDefault(icu::TimeZone::getGMT()->clone()); });
}

/// The civil time as milliseconds since 1970 in a zone without offset, which is what the formatters are set
/// to.
UDate civilMilliseconds(const CivilTime& time) {
    const std::chrono::year_month_day firstOfCycle{std::chrono::year(static_cast<int>(time.year % 400)),
                                                   std::chrono::month(static_cast<unsigned>(time.month)),
                                                   std::chrono::day(static_cast<unsigned>(time.day))};
    constexpr double daysInCycle = 146'097; // the Gregorian calendar repeats after 400 years
    const std::int64_t cycles = time.year / 400;
    const double days = static_cast<double>(std::chrono::sys_days(firstOfCycle).time_since_epoch().count()) +
                        static_cast<double>(cycles) * daysInCycle;
    const double minutes = (days * 24 + time.hour) * 60 + time.minute;
    return (minutes * 60 + time.second) * 1000;
}

/// The calendar that people of the locale use, in a zone without offset. A Gregorian one knows no other
/// calendar before it, as CivilTime does not.
std::unique_ptr<icu::Calendar> newCalendar(const icu::Locale& locale, UErrorCode& status) {
    std::unique_ptr<icu::Calendar> calendar(
        icu::Calendar::createInstance(*icu::TimeZone::getGMT(), locale, status));
    if (auto* gregorian = dynamic_cast<icu::GregorianCalendar*>(calendar.get()))
        gregorian->setGregorianChange(-1e17, status);
    return calendar;
}

std::string utf8(const icu::UnicodeString& text) {
    std::string result;
    text.toUTF8String(result);
    return result;
}

std::string withOrdinarySpaces(icu::UnicodeString text) {
    text.findAndReplace(u"\u202F", u" ");
    text.findAndReplace(u"\u00A0", u" ");
    return utf8(text);
}

} // namespace

struct LocalizedFormats::Formatters {
    explicit Formatters(const std::string& name)
        : locale(icuLocale(name))
        , spans(spanLocale(locale)) {
        forgetZone();
    }

    const icu::SimpleDateFormat* dateFormat(DateFields fields) {
        auto& slot = dates[static_cast<std::size_t>(fields)];
        if (!slot) {
            slot = newDateFormat(fields);
            giveBackIcuTables();
        }
        return slot.get();
    }

    std::unique_ptr<icu::SimpleDateFormat> newDateFormat(DateFields fields) {
        UErrorCode status = U_ZERO_ERROR;
        const icu::UnicodeString pattern = patternOf(fields, status);
        auto format = std::make_unique<icu::SimpleDateFormat>(pattern, locale, status);
        auto calendar = newCalendar(locale, status);
        if (U_FAILURE(status))
            return nullptr;
        format->adoptCalendar(calendar.release());
        return format;
    }

    icu::UnicodeString patternOf(DateFields fields, UErrorCode& status) {
        if (fields == DateFields::weekday)
            return u"ccc";
        if (!patterns)
            patterns.reset(icu::DateTimePatternGenerator::createInstance(locale, status));
        if (U_FAILURE(status))
            return {};
        if (fields == DateFields::hourMinute)
            return patterns->getBestPattern(u"jmm", status);
        if (isEnglish(locale))
            return englishPattern(*patterns, fields, status);
        return patterns->getBestPattern(fields == DateFields::weekdayDay ? u"EEEd" : u"MMMEd", status);
    }

    std::mutex mutex;
    icu::Locale locale;
    std::unique_ptr<icu::DateTimePatternGenerator> patterns;
    std::array<std::unique_ptr<icu::SimpleDateFormat>, 4> dates;
    SpanFormat spans;
};

LocalizedFormats::LocalizedFormats(const std::string& locale)
    : m_formatters(std::make_unique<Formatters>(locale)) {}

LocalizedFormats::~LocalizedFormats() = default;

std::string LocalizedFormats::date(const CivilTime& time, DateFields fields) const {
    const std::scoped_lock guard(m_formatters->mutex);
    const icu::SimpleDateFormat* format = m_formatters->dateFormat(fields);
    if (format == nullptr)
        return {};
    icu::UnicodeString text;
    return withOrdinarySpaces(format->format(civilMilliseconds(time), text));
}

std::string LocalizedFormats::timeLeft(Seconds left) const {
    const std::scoped_lock guard(m_formatters->mutex);
    return withOrdinarySpaces(m_formatters->spans.text(left));
}

std::string LocalizedFormats::upperCase(std::string_view text) const {
    std::string result;
    icu::StringByteSink<std::string> sink(&result);
    UErrorCode status = U_ZERO_ERROR;
    icu::CaseMap::utf8ToUpper("", 0, icu::StringPiece(text.data(), static_cast<int32_t>(text.size())), sink,
                              nullptr, status);
    return U_SUCCESS(status) ? result : std::string(text);
}

std::string LocalizedFormats::translated(const char* key) const {
    return ::dgettext(messageDomain, key);
}

} // namespace vantel
