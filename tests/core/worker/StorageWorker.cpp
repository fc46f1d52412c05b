#include "core/SnapshotDocument.h"
#include "core/WidgetJournal.h"
#include "core/WidgetShared.h"
#include "platform/DataFile.h"

#include <cstdlib>
#include <iostream>
#include <string>

#include <spawn.h>
#include <unistd.h>

/// The other process of the tests that need one: does one thing to the shared container, and exits with 0 if
/// all of it succeeded.
namespace vantel {
namespace {

/// Prints the container's identifier, and once more after a line of input.
bool showIdentifier() {
    std::cout << WidgetShared::appGroupID() << std::endl;
    std::string line;
    std::getline(std::cin, line);
    std::cout << WidgetShared::appGroupID() << std::endl;
    return true;
}

WidgetJournalEntry entryOf(int writer, int number) {
    WidgetJournalEntry entry{.id = {},
                             .accountID = "writer " + std::to_string(writer),
                             .action = WidgetJournalEntry::Action::completeTodo,
                             .todoID = std::to_string(number),
                             .at = instantFromReference(number)};
    entry.id.bytes[0] = static_cast<std::uint8_t>(writer);
    for (int i = 0; i < 4; ++i)
        entry.id.bytes[static_cast<std::size_t>(15 - i)] = static_cast<std::uint8_t>(number >> (8 * i));
    return entry;
}

bool append(int writer, int count) {
    for (int number = 0; number < count; ++number)
        if (!WidgetJournal::append(entryOf(writer, number)))
            return false;
    return true;
}

/// Appends until it is killed, and prints the number of each entry once it is in the journal.
bool appendForEver(int writer) {
    for (int number = 0; WidgetJournal::append(entryOf(writer, number)); ++number)
        std::cout << number << std::endl;
    return false;
}

/// Completes the tasks "task-<first>" and so on, each at the instant of its number.
bool complete(int first, int count) {
    for (int number = first; number < first + count; ++number) {
        const Instant at = instantFromReference(number);
        if (!WidgetSnapshot::applyCompletion("task-" + std::to_string(number), at, "account").value_or(false))
            return false;
    }
    return true;
}

/// One change that a companion makes: in one hold of the lock it reads the snapshot, counts up, drops the
/// task "old-<round>", adds the task "new-<round>", and writes all the rest back as it was read.
Result<void> publishRound(int round) {
    const FileURL file = WidgetShared::snapshotURL().value();
    const auto changing = [&](FileHandle&) -> Result<void> {
        const auto bytes = readFile(file, systemFileSystem());
        if (!bytes)
            return std::unexpected(bytes.error());
        auto snapshot = decodeSnapshot(*bytes);
        if (!snapshot)
            return std::unexpected(snapshot.error());
        snapshot->triageCount += 1;
        std::erase_if(snapshot->tasks,
                      [&](const auto& task) { return task.id == "old-" + std::to_string(round); });
        snapshot->tasks.push_back(
            {.id = "new-" + std::to_string(round), .summary = "", .priorityRank = 0, .priorityScore = 0});
        const auto document = encodeSnapshot(*snapshot);
        return document ? writeFileAtomically(file, *document, systemFileSystem())
                        : std::unexpected(document.error());
    };
    return WidgetShared::withLockedFile(WidgetShared::snapshotLockURL().value(), changing);
}

bool publish(int rounds) {
    for (int round = 0; round < rounds; ++round)
        if (!publishRound(round))
            return false;
    return true;
}

/// Holds the lock on a file until it is killed; says so on its output.
bool hold(const FileURL& file) {
    const auto locked = LockedFile::acquire(file, systemFileSystem());
    if (!locked)
        return false;
    std::cout << "locked" << std::endl;
    while (true)
        ::pause();
}

/// The same, with a child that was started meanwhile, whose number it prints.
bool holdWithChild(const FileURL& file) {
    const auto locked = LockedFile::acquire(file, systemFileSystem());
    std::string program = "/bin/sleep";
    std::string seconds = "60";
    char* const words[] = {program.data(), seconds.data(), nullptr};
    pid_t child = 0;
    if (!locked || ::posix_spawn(&child, program.c_str(), nullptr, nullptr, words, environ) != 0)
        return false;
    std::cout << child << std::endl;
    while (true)
        ::pause();
}

bool run(const std::string& command, const std::string& first, const std::string& second) {
    if (command == "identifier")
        return showIdentifier();
    if (command == "append")
        return append(std::stoi(first), std::stoi(second));
    if (command == "appendForEver")
        return appendForEver(std::stoi(first));
    if (command == "complete")
        return complete(std::stoi(first), std::stoi(second));
    if (command == "publish")
        return publish(std::stoi(first));
    if (command == "holdWithChild")
        return holdWithChild(first);
    return command == "hold" && hold(first);
}

} // namespace
} // namespace vantel

int main(int count, char** arguments) {
    const auto argument = [&](int index) { return std::string(index < count ? arguments[index] : ""); };
    return vantel::run(argument(1), argument(2), argument(3)) ? EXIT_SUCCESS : EXIT_FAILURE;
}
