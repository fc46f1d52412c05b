#include "tests/torture/program/HostileDays.h"

#include "core/SnapshotDocument.h"
#include "platform/SystemCalendar.h"
#include "tests/fakes/HostileTexts.h"

#include <algorithm>
#include <fstream>
#include <iostream>

namespace vantel::torture {

namespace {

using testing::HostileText;

/// Gives the same few texts again and again, so that each is seen in every view.
class Texts {
public:
    explicit Texts(std::vector<HostileText> texts)
        : m_texts(std::move(texts)) {}

    std::string next() { return m_texts[m_next++ % m_texts.size()].text; }

private:
    std::vector<HostileText> m_texts;
    std::size_t m_next = 0;
};

WidgetSnapshot sampleDay() {
    const SystemCalendar utc(cctz::utc_time_zone());
    return WidgetSnapshot::placeholder(*utc.date(2026, 11, 17, 9), utc);
}

WidgetSnapshot hostileDay(Texts texts) {
    WidgetSnapshot day = sampleDay();
    for (WidgetTask& task : day.tasks)
        task.summary = texts.next();
    for (WidgetEvent& event : day.events) {
        event.title = texts.next();
        event.location = texts.next();
        event.joinProvider = texts.next();
        if (const auto url = parseUrl("https://127.0.0.1:9/" + texts.next()))
            event.joinURL = *url;
    }
    for (WidgetChip& chip : day.allDayChips)
        chip.text = texts.next();
    for (WidgetHorizonItem& item : day.horizon) {
        item.label = texts.next();
        item.subject = texts.next();
    }
    return day;
}

WidgetSnapshot hugeDay(const HostileText& huge) {
    WidgetSnapshot day = sampleDay();
    day.tasks.front().summary = huge.text;
    day.events.front().title = huge.text;
    day.horizon.front().subject = huge.text;
    return day;
}

/// All numbers are equally long, so that the names stand in their order.
std::string numbered(const std::string& kind, std::size_t number) {
    return kind + '-' + std::to_string(1000 + number) + ".json";
}

void write(const std::string& name, const WidgetSnapshot& snapshot) {
    std::ofstream(name, std::ios::binary) << encodeSnapshot(snapshot).value();
}

} // namespace

int writeHostileDays() {
    constexpr std::size_t textsOfADay = 6;
    write("harmless.json", sampleDay());
    const std::vector<HostileText> texts = testing::hostileTexts();
    for (std::size_t i = 0; i < texts.size(); i += textsOfADay) {
        const std::size_t end = std::min(i + textsOfADay, texts.size());
        write(numbered("hostile", i), hostileDay(Texts({texts.begin() + static_cast<std::ptrdiff_t>(i),
                                                        texts.begin() + static_cast<std::ptrdiff_t>(end)})));
    }
    const std::vector<HostileText> huge = testing::hugeTexts();
    for (std::size_t i = 0; i < huge.size(); ++i)
        write(numbered("huge", i), hugeDay(huge[i]));
    std::cout << texts.size() << " hostile texts, and " << huge.size() << " of four megabytes\n";
    return 0;
}

} // namespace vantel::torture
