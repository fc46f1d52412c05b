#include "tests/torture/desktop/ProcessCounts.h"

#include <QApplication>
#include <QWidget>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <malloc.h>
#include <unistd.h>

namespace vantel::torture {

namespace {

long entries(const char* folder) {
    return std::distance(std::filesystem::directory_iterator(folder), {});
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
    return {residentBytes(), entries("/proc/self/fd"), entries("/proc/self/task"), watchedFiles(),
            objectsOnCards()};
}

std::string described(const ProcessCounts& counts) {
    return std::to_string(counts.bytes / 1024) + " KiB, " + std::to_string(counts.descriptors) +
           " descriptors, " + std::to_string(counts.threads) + " threads, " + std::to_string(counts.watches) +
           " watches, " + std::to_string(counts.objects) + " objects";
}

} // namespace vantel::torture
