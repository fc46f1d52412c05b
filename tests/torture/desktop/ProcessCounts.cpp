#include "tests/torture/desktop/ProcessCounts.h"

#include <QApplication>
#include <QWidget>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

#include <malloc.h>
#include <unistd.h>

namespace vantel::torture {

namespace {

long entries(const char* folder) {
    return std::distance(std::filesystem::directory_iterator(folder), {});
}

/// A worker that has answered takes a moment to end, and is not yet gone when its answer is there.
long lastingThreads() {
    long fewest = entries("/proc/self/task");
    for (int i = 0; i < 20; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        fewest = std::min(fewest, entries("/proc/self/task"));
    }
    return fewest;
}

long residentBytes() {
    ::malloc_trim(0);
    long size = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> size >> resident;
    return resident * ::sysconf(_SC_PAGESIZE);
}

/// A descriptor that watches files has a line for each of them.
long watchedFiles() {
    long count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fdinfo")) {
        std::ifstream information(entry.path());
        for (std::string line; std::getline(information, line);)
            count += line.starts_with("inotify ") ? 1 : 0;
    }
    return count;
}

long objectsOnCards() {
    long count = 0;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget* window : windows)
        count += 1 + window->findChildren<QObject*>().size();
    return count;
}

} // namespace

ProcessCounts countProcess() {
    const long threads = lastingThreads();
    return {residentBytes(), entries("/proc/self/fd"), threads, watchedFiles(), objectsOnCards()};
}

std::string described(const ProcessCounts& counts) {
    return std::to_string(counts.bytes / 1024) + " KiB, " + std::to_string(counts.descriptors) +
           " descriptors, " + std::to_string(counts.threads) + " threads, " + std::to_string(counts.watches) +
           " watches, " + std::to_string(counts.objects) + " objects";
}

} // namespace vantel::torture
