#include "tests/fakes/ScratchFolder.h"
#include "tests/torture/desktop/Days.h"
#include "tests/torture/desktop/ProcessCounts.h"
#include "tests/torture/desktop/SimulatedDesktop.h"
#include "tests/torture/desktop/WatchedZone.h"
#include "tests/torture/program/Report.h"

#include <QApplication>
#include <algorithm>
#include <array>
#include <cmath>
#include <iostream>
#include <random>

#include <malloc.h>

/// vantel_years RELOADS: lives through years with all widgets, of days that change, clocks that are set and
/// zones that are left, and ends with 1 if any card shows what it should not, or anything is gathered.
namespace vantel::torture {
namespace {

constexpr long mebibyte = 1024L * 1024;
constexpr long reloadsUntilSettled = 50000;
constexpr std::array zones{"Europe/Berlin", "America/St_Johns", "Pacific/Apia",   "Asia/Kathmandu",
                           "Africa/Cairo",  "Antarctica/Troll", "Pacific/Chatham"};

class Years {
public:
    Years(long reloads, const std::filesystem::path& samples)
        : m_reloads(reloads)
        , m_days(fiftyDays(samples))
        , m_desktop(secondsSinceReference(m_days.front().generatedAt)) {}

    int live() {
        const long settled = std::min(m_reloads / 2, reloadsUntilSettled);
        liveUntil(settled);
        const ProcessCounts before = countAtRest();
        std::cout << "after " << settled << " reloads: " << described(before) << std::endl;
        m_report.expect(before.watches > 0, "nobody watches the file of the zone");
        liveUntil(m_reloads);
        expectNothingGathered(before, countAtRest());
        compare("in the end");
        std::cout << m_desktop.reloads() << " reloads, " << m_jumps << " times the clock was set, "
                  << m_travels << " zones, " << m_compared << " times compared with a fresh start"
                  << std::endl;
        return m_report.status();
    }

private:
    void liveUntil(long reloads) {
        for (; m_desktop.reloads() < reloads; ++m_round) {
            beginDay();
            for (int i = 0; i < 20; ++i)
                m_desktop.liveOn();
            compare("after a day was lived through");
            if (m_round % 4 == 0)
                jump();
            if (m_round % 4 == 2)
                travel();
        }
    }

    void beginDay() {
        const WidgetSnapshot& day = m_days[m_round % m_days.size()];
        m_report.expect(day.write().has_value(), "a snapshot could not be written");
        m_desktop.jumpTo(secondsSinceReference(day.generatedAt) + uniform(-3600, 36000));
        ++m_jumps;
    }

    /// By a second to ten years, back or forth.
    void jump() {
        const double seconds = std::exp(uniform(0, std::log(10 * 365.25 * 86400)));
        m_desktop.jumpTo(m_desktop.seconds() + (m_random() % 2 == 0 ? seconds : -seconds));
        ++m_jumps;
        compare("after the clock was set by " + std::to_string(seconds) + " seconds");
    }

    void travel() {
        const char* zone = zones.at(m_random() % zones.size());
        m_zone.change(zone);
        m_desktop.changeZone();
        ++m_travels;
        compare(std::string("after going to ") + zone);
    }

    /// Whatever has happened, the cards show what they would if everything had begun at this moment.
    void compare(const std::string& when) {
        const SimulatedDesktop fresh(m_desktop.seconds());
        m_report.expect(m_desktop.contents() == fresh.contents(),
                        "other views than those of a fresh start " + when);
        m_report.expect(m_desktop.pictures() == fresh.pictures(),
                        "other cards than those of a fresh start " + when);
        ++m_compared;
    }

    /// What is counted depends on what is shown, so the same is shown each time.
    ProcessCounts countAtRest() {
        m_report.expect(m_days.front().write().has_value(), "a snapshot could not be written");
        m_zone.change(zones.front());
        m_desktop.changeZone();
        m_desktop.jumpTo(secondsSinceReference(m_days.front().generatedAt));
        return countProcess();
    }

    /// Until fonts, glyphs and forms of dates have all been seen, memory grows without being lost.
    long mostGrowth() const { return (m_reloads > 2 * reloadsUntilSettled ? 1 : 4) * mebibyte; }

    void expectNothingGathered(const ProcessCounts& before, const ProcessCounts& after) {
        std::cout << "at the end: " << described(after) << std::endl;
        ProcessCounts same = after;
        same.bytes = before.bytes;
        m_report.expect(same == before, "something was gathered");
        m_report.expect(after.bytes - before.bytes <= mostGrowth(), "the memory grew");
    }

    double uniform(double low, double high) { return std::uniform_real_distribution<>(low, high)(m_random); }

    long m_reloads;
    std::vector<WidgetSnapshot> m_days;
    WatchedZone m_zone;
    SimulatedDesktop m_desktop;
    Report m_report;
    std::minstd_rand m_random{1};
    std::size_t m_round = 0;
    long m_jumps = 0;
    long m_travels = 0;
    long m_compared = 0;
};

} // namespace
} // namespace vantel::torture

int main(int count, char** arguments) {
    ::mallopt(M_ARENA_MAX, 1); // as the program on the desktop does
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::setenv("TZ", "Europe/Berlin", 1);
    const QApplication application(count, arguments);
    const vantel::testing::ScratchDataHome dataHome(vantel::testing::quickFolder());
    return vantel::torture::Years(count > 1 ? std::atol(arguments[1]) : 1000, VANTEL_TEST_DATA "/samples")
        .live();
}
