#include "tests/torture/desktop/Days.h"

#include "core/SnapshotDocument.h"
#include "tests/fakes/ReadFile.h"

#include <algorithm>
#include <iterator>
#include <random>

namespace vantel::torture {

namespace {

WidgetSnapshot read(const std::filesystem::path& file) {
    return decodeSnapshot(testing::readFile(file).value()).value();
}

std::vector<WidgetSnapshot> samples(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".json")
            files.push_back(entry.path());
    std::ranges::sort(files);
    std::vector<WidgetSnapshot> days;
    std::ranges::transform(files, std::back_inserter(days), read);
    return days;
}

WidgetSnapshot varied(WidgetSnapshot day, std::minstd_rand& random) {
    const auto isMissing = [&](const auto&) { return random() % 3 == 0; };
    std::erase_if(day.tasks, isMissing);
    std::erase_if(day.events, isMissing);
    std::erase_if(day.horizon, isMissing);
    day.triageCount = static_cast<int>(random() % 200);
    return day;
}

} // namespace

std::vector<WidgetSnapshot> fiftyDays(const std::filesystem::path& folder) {
    std::minstd_rand random(1);
    std::vector<WidgetSnapshot> days = samples(folder);
    for (std::size_t i = 0; days.size() < 50; ++i)
        days.push_back(varied(days[i], random));
    return days;
}

} // namespace vantel::torture
