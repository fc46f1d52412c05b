#include "host/doctor/ContainerFindings.h"

#include "core/WidgetSnapshot.h"
#include "platform/VisibleText.h"

#include <array>
#include <cstdio>

namespace vantel {

namespace {

constexpr Seconds longAgo{48 * 3600.0};
constexpr Seconds clockDifference{5 * 60.0}; ///< between the clocks of two programs that nobody minds

std::string pathText(const FileFacts& file) {
    return visibleText(file.path.string());
}

std::string nameText(const FileFacts& file) {
    return visibleText(file.path.filename().string());
}

std::string octal(unsigned mode) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%04o", mode);
    return text.data();
}

enum class Need { read, readAndWrite };

/// What keeps a file that is there from being used; absent for nothing.
std::optional<Finding> obstacle(const FileFacts& file, Need need, const Formats& formats) {
    const auto failing = [&](const std::string& pattern) {
        return Finding{Verdict::fail, filled(pattern, {pathText(file)})};
    };
    if (file.kind == FileFacts::Kind::unknown || !file.isReadable)
        return failing(formats.translated("%s cannot be read."));
    if (need == Need::readAndWrite && !file.isWritable)
        return failing(formats.translated("%s cannot be written."));
    if (!file.isMine)
        return Finding{Verdict::fail, filled(formats.translated("%s belongs to another user (%lld)."),
                                             {pathText(file), std::to_string(file.owner)})};
    return std::nullopt;
}

Finding ofFolder(const ContainerFacts& facts, const Formats& formats) {
    const FileFacts& folder = facts.folder;
    if (folder.kind != FileFacts::Kind::directory && folder.kind != FileFacts::Kind::unknown)
        return {Verdict::fail, filled(formats.translated("%s is no folder."), {pathText(folder)})};
    if (auto found = obstacle(folder, Need::readAndWrite, formats))
        return *std::move(found);
    if (facts.isReachable)
        return {Verdict::warn,
                filled(formats.translated("Others can reach the shared folder %s (its mode is %s; 0700 is "
                                          "private)."),
                       {pathText(folder), octal(folder.mode)})};
    return {Verdict::ok,
            filled(formats.translated("The shared folder %s is private to you."), {pathText(folder)})};
}

std::optional<Finding> fileObstacle(const FileFacts& file, Need need, const Formats& formats) {
    if (file.kind == FileFacts::Kind::directory || file.kind == FileFacts::Kind::other)
        return Finding{Verdict::fail,
                       filled(formats.translated("%s is no ordinary file."), {pathText(file)})};
    return obstacle(file, need, formats);
}

Finding ofAge(Seconds age, const Formats& formats) {
    if (age < -clockDifference)
        return {Verdict::warn, filled(formats.translated("The snapshot is from the future (%s ahead): a "
                                                         "clock is wrong."),
                                      {formats.timeLeft(-age)})};
    const std::string text = formats.timeLeft(age);
    if (age >= longAgo)
        return {Verdict::warn, filled(formats.translated("The snapshot is %s old: the companion application "
                                                         "has not written for long."),
                                      {text})};
    return {Verdict::ok, filled(formats.translated("The snapshot can be read and is %s old."), {text})};
}

Finding ofHead(const Result<SnapshotHead>& head, Instant now, const Formats& formats) {
    if (!head)
        return {Verdict::fail, filled(formats.translated("The snapshot cannot be read (%s)."),
                                      {visibleText(message(head.error()))})};
    if (head->version != WidgetSnapshot::currentVersion)
        return {Verdict::fail,
                filled(formats.translated("The snapshot has version %lld; the widgets read version %lld."),
                       {std::to_string(head->version), std::to_string(WidgetSnapshot::currentVersion)})};
    return ofAge(now - head->generatedAt, formats);
}

Finding ofSnapshot(const ContainerFacts& facts, Instant now, const Formats& formats) {
    if (facts.snapshot.kind == FileFacts::Kind::missing)
        return {Verdict::warn,
                formats.translated("There is no snapshot yet: the widgets say how to set up.")};
    if (auto found = fileObstacle(facts.snapshot, Need::read, formats))
        return *std::move(found);
    return ofHead(facts.head.value_or(std::unexpected(fileReadUnknown())), now, formats);
}

Finding ofHolder(const std::string& name, const std::optional<ProcessFacts>& holder, const Formats& formats) {
    if (!holder || holder->name.empty())
        return {Verdict::warn,
                filled(formats.translated("A process that cannot be seen holds the lock of %s."), {name})};
    const std::string number = std::to_string(holder->number);
    const std::string command = visibleText(holder->name);
    if (holder->isStopped)
        return {Verdict::fail, filled(formats.translated("Process %lld (%s) holds the lock of %s and is "
                                                         "stopped: whoever needs it waits."),
                                      {number, command, name})};
    return {Verdict::warn,
            filled(formats.translated("Process %lld (%s) holds the lock of %s."), {number, command, name})};
}

Finding ofLock(const FileFacts& file, const LockFacts& lock, const Formats& formats) {
    const std::string name = nameText(file);
    if (file.kind == FileFacts::Kind::missing)
        return {Verdict::ok,
                filled(formats.translated("%s is not there yet; it is made when it is needed."), {name})};
    if (auto found = fileObstacle(file, Need::readAndWrite, formats))
        return *std::move(found);
    switch (lock.kind) {
    case LockFacts::Kind::free:
        return {Verdict::ok, filled(formats.translated("Nobody holds the lock of %s."), {name})};
    case LockFacts::Kind::held:
        return ofHolder(name, lock.holder, formats);
    case LockFacts::Kind::unknown:
        break;
    }
    return {Verdict::warn, filled(formats.translated("Who holds the lock of %s cannot be told."), {name})};
}

Findings ofContainer(const ContainerFacts& facts, Instant now, const Formats& formats) {
    if (facts.folder.kind == FileFacts::Kind::missing)
        return {
            {Verdict::warn, filled(formats.translated("The shared folder %s is not there yet: the companion "
                                                      "application makes it."),
                                   {pathText(facts.folder)})}};
    Findings findings{ofFolder(facts, formats)};
    if (findings.front().verdict == Verdict::fail)
        return findings;
    findings.push_back(ofSnapshot(facts, now, formats));
    findings.push_back(ofLock(facts.snapshotLock, facts.snapshotLockState, formats));
    findings.push_back(ofLock(facts.journal, facts.journalLockState, formats));
    return findings;
}

Finding ofPlacements(const PlacementsFacts& facts, const Formats& formats) {
    const std::string path = visibleText(facts.file.string());
    if (!facts.count)
        return {Verdict::ok, formats.translated("No place of a widget was saved yet.")};
    if (!*facts.count)
        return {Verdict::warn,
                filled(formats.translated("The places of the widgets cannot be read from %s (%s)."),
                       {path, visibleText(message(facts.count->error()))})};
    return {Verdict::ok, filled(formats.translated("The places of the widgets are kept in %s (%lld)."),
                                {path, std::to_string(**facts.count)})};
}

} // namespace

Findings storageFindings(const StorageFacts& facts, const Formats& formats) {
    Findings findings;
    if (facts.container)
        findings = ofContainer(*facts.container, facts.now, formats);
    else
        findings = {{Verdict::fail, formats.translated("There is no shared folder: neither XDG_DATA_HOME "
                                                       "nor HOME is an absolute path.")}};
    if (facts.placements)
        findings.push_back(ofPlacements(*facts.placements, formats));
    else
        findings.push_back({Verdict::fail, formats.translated("There is no folder for the places of the "
                                                              "widgets: neither XDG_STATE_HOME nor HOME is "
                                                              "an absolute path.")});
    return findings;
}

Findings silentStorage(const Formats& formats) {
    return {{Verdict::fail, formats.translated("The disk with the shared folder does not answer.")}};
}

} // namespace vantel
