#include "platform/SystemCalendar.h"
#include "tests/fakes/ScopedEnvironment.h"
#include "tests/fakes/ZoneOffsets.h"

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

namespace vantel {
namespace {

using testing::ScopedEnvironment;
using testing::ZoneOffsets;

constexpr std::int64_t endOf1988 = 599'616'000;
constexpr std::int64_t startOf1990 = 631'152'000;
constexpr std::int64_t startOf2038 = 2'145'916'800;
constexpr std::int64_t startOf2039 = 2'177'452'800;

bool isZoneFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::string magic(4, '\0');
    file.read(magic.data(), 4);
    return magic == "TZif";
}

std::vector<std::string> allZoneNames() {
    const std::filesystem::path database = "/usr/share/zoneinfo";
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(database)) {
        const std::string name = std::filesystem::relative(entry.path(), database);
        const bool isOtherTree = name.starts_with("posix/") || name.starts_with("right/");
        if (!isOtherTree && name != "localtime" && entry.is_regular_file() && isZoneFile(entry.path()))
            names.push_back(name);
    }
    return names;
}

Instant instantAt(std::int64_t unixTime) {
    return instantFromReference(static_cast<double>(unixTime) - referenceInUnixTime);
}

std::int64_t unixTime(Instant instant) {
    return static_cast<std::int64_t>(secondsSinceUnixEpoch(instant));
}

struct Answers {
    std::int64_t startOfDay;
    std::int64_t nextMidnight;
    std::int64_t secondOfDay;

    bool operator==(const Answers&) const = default;

    friend void PrintTo(const Answers& answers, std::ostream* stream) {
        *stream << "start of day " << answers.startOfDay << ", next midnight " << answers.nextMidnight
                << ", second of day " << answers.secondOfDay;
    }
};

Answers ask(const SystemCalendar& calendar, std::int64_t time) {
    const Instant start = calendar.startOfDay(instantAt(time));
    const CivilTime civil = calendar.civilTime(instantAt(time));
    return {.startOfDay = unixTime(start),
            .nextMidnight = unixTime(calendar.addingDays(1, start).value_or(Instant())),
            .secondOfDay = (civil.hour * 60 + civil.minute) * 60 + civil.second};
}

Answers ask(const ZoneOffsets& zone, std::int64_t time) {
    return {.startOfDay = zone.startOfDay(time),
            .nextMidnight = zone.nextMidnight(time),
            .secondOfDay = (time + zone.offsetAt(time)) % 86'400};
}

/// How many instants were compared.
int compareAtEveryTransition(const SystemCalendar& calendar, const ZoneOffsets& zone,
                             const std::string& name) {
    int compared = 0;
    for (const std::int64_t transition : zone.transitions()) {
        if (transition < startOf1990 || transition >= startOf2038)
            continue;
        for (const std::int64_t time : {transition - 1, transition, transition + 1}) {
            EXPECT_EQ(ask(calendar, time), ask(zone, time)) << name << " at " << time;
            ++compared;
        }
    }
    return compared;
}

TEST(ZoneSweep, DaysBeginAndEndWhereTheOffsetsOfTheSystemSayAtEveryTransitionOfEveryZone) {
    const ScopedEnvironment zone("TZ", "UTC");
    const auto names = allZoneNames();
    ASSERT_GT(names.size(), 400U);
    int compared = 0;
    for (const std::string& name : names)
        compared += compareAtEveryTransition(SystemCalendar::named(name).value(),
                                             ZoneOffsets(name, endOf1988, startOf2039), name);
    EXPECT_GT(compared, 50'000);
}

TEST(ZoneSweep, DaysBeginAndEndWhereTheOffsetsSayUnderARuleInsteadOfAName) {
    for (const std::string rule : {"CET-1CEST,M3.5.0,M10.5.0/3", "<-04>4<-03>,M9.1.6/24,M4.1.6/24",
                                   "NST3:30NDT,M3.2.0/0:01,M11.1.0/0:01",
                                   "<+1030>-10:30<+11>-11,M10.1.0,M4.1.0", "<+13>-13<+14>,J100/0,J300/0"}) {
        const ScopedEnvironment zone("TZ", rule);
        const ZoneOffsets offsets(rule, endOf1988, startOf2039);
        EXPECT_GT(compareAtEveryTransition(SystemCalendar::current(), offsets, rule), 250) << rule;
    }
}

} // namespace
} // namespace vantel
