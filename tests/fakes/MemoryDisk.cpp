#include "tests/fakes/MemoryDisk.h"

#include <algorithm>
#include <ranges>
#include <set>

namespace vantel::testing {

namespace {

/// Bytes on which a file may be found when the power goes while it changes from one state to the next.
void insertSteps(const std::string& from, const std::string& to, std::set<std::string>& result) {
    const auto common = static_cast<std::size_t>(std::ranges::mismatch(from, to).in2 - to.begin());
    for (std::size_t length = common; length <= to.size(); ++length) {
        result.insert(to.substr(0, length));
        result.insert(to.substr(0, length) + std::string(to.size() - length, '\0'));
    }
}

std::set<std::string> statesAfterPowerCut(const Stored<std::string>& bytes) {
    if (bytes.older.empty())
        return {bytes.current};
    std::set<std::string> result{bytes.older.front()};
    for (std::size_t i = 1; i < bytes.older.size(); ++i)
        insertSteps(bytes.older[i - 1], bytes.older[i], result);
    insertSteps(bytes.older.back(), bytes.current, result);
    return result;
}

using Names = std::map<std::string, MemoryDisk::FileNumber>;

std::optional<MemoryDisk::FileNumber> numberOf(const std::string& name, const Names& names) {
    const auto found = names.find(name);
    return found != names.end() ? std::optional(found->second) : std::nullopt;
}

/// The files that one name led to at some moment since the last sync, or none.
std::set<std::optional<MemoryDisk::FileNumber>> filesOf(const std::string& name, const Stored<Names>& names) {
    std::set<std::optional<MemoryDisk::FileNumber>> result{numberOf(name, names.current)};
    for (const Names& older : names.older)
        result.insert(numberOf(name, older));
    return result;
}

std::vector<Names> withName(const std::string& name, const Stored<Names>& names,
                            const std::vector<Names>& others) {
    std::vector<Names> result;
    for (const auto& number : filesOf(name, names))
        for (const Names& other : others) {
            result.push_back(other);
            if (number)
                result.back()[name] = *number;
        }
    return result;
}

std::vector<Names> statesAfterPowerCut(const Stored<Names>& names) {
    std::set<std::string> all;
    for (const Names& older : names.older)
        for (const auto& [name, number] : older)
            all.insert(name);
    for (const auto& [name, number] : names.current)
        all.insert(name);
    std::vector<Names> result{{}};
    for (const std::string& name : all)
        result = withName(name, names, result);
    return result;
}

template <typename States>
auto oneOf(const States& states, std::mt19937& random) {
    std::uniform_int_distribution<std::size_t> index(0, states.size() - 1);
    return *std::next(states.begin(), static_cast<std::ptrdiff_t>(index(random)));
}

} // namespace

void MemoryDisk::plant(const FileURL& file, std::string contents, unsigned mode) {
    makeFolders(file.parent_path());
    m_files[create(file, mode)].bytes.current = std::move(contents);
    syncFolder(file.parent_path());
}

std::optional<std::string> MemoryDisk::contents(const FileURL& file) const {
    const auto number = find(file);
    return number ? std::optional(m_files.at(*number).bytes.current) : std::nullopt;
}

std::optional<unsigned> MemoryDisk::mode(const FileURL& file) const {
    const auto number = find(file);
    return number ? std::optional(m_files.at(*number).mode) : std::nullopt;
}

std::vector<std::string> MemoryDisk::names(const FileURL& folder) const {
    std::vector<std::string> result;
    for (const auto& [name, number] : currentNames(folder))
        result.push_back(name);
    return result;
}

std::vector<MemoryDisk> MemoryDisk::afterPowerCut() const {
    std::vector<MemoryDisk> disks{*this};
    const auto forEachState = [&disks](const auto& stored, const auto& put) {
        std::vector<MemoryDisk> varied;
        for (const MemoryDisk& disk : disks)
            for (const auto& state : statesAfterPowerCut(stored))
                put(varied.emplace_back(disk), state);
        disks = std::move(varied);
    };
    for (const auto& [path, names] : m_folders)
        forEachState(names,
                     [&path](MemoryDisk& disk, const Names& state) { disk.m_folders[path] = {state, {}}; });
    for (const auto& [number, file] : m_files)
        forEachState(file.bytes, [&number](MemoryDisk& disk, const std::string& state) {
            disk.m_files[number].bytes = {state, {}};
        });
    return disks;
}

MemoryDisk MemoryDisk::afterPowerCut(std::mt19937& random) const {
    MemoryDisk disk = *this;
    for (auto& [path, names] : disk.m_folders)
        names = {oneOf(statesAfterPowerCut(names), random), {}};
    for (auto& [number, file] : disk.m_files)
        file.bytes = {oneOf(statesAfterPowerCut(file.bytes), random), {}};
    return disk;
}

void MemoryDisk::makeFolders(const FileURL& folder) {
    if (m_folders.try_emplace(folder).second)
        makeFolders(folder.parent_path());
}

MemoryDisk::FileNumber MemoryDisk::create(const FileURL& name, unsigned mode) {
    const auto number = static_cast<FileNumber>(m_files.size());
    m_files[number] = {mode, {}};
    Names names = currentNames(name.parent_path());
    names[name.filename()] = number;
    m_folders[name.parent_path()].change(std::move(names));
    return number;
}

std::optional<MemoryDisk::FileNumber> MemoryDisk::find(const FileURL& name) const {
    const Names names = currentNames(name.parent_path());
    const auto found = names.find(name.filename());
    return found != names.end() ? std::optional(found->second) : std::nullopt;
}

void MemoryDisk::rename(const FileURL& from, const FileURL& to) {
    Names names = currentNames(to.parent_path());
    names[to.filename()] = names.at(from.filename());
    names.erase(from.filename());
    m_folders[to.parent_path()].change(std::move(names));
}

void MemoryDisk::remove(const FileURL& name) {
    Names names = currentNames(name.parent_path());
    names.erase(name.filename());
    m_folders[name.parent_path()].change(std::move(names));
}

MemoryDisk::Names MemoryDisk::currentNames(const FileURL& folder) const {
    const auto found = m_folders.find(folder);
    return found != m_folders.end() ? found->second.current : Names{};
}

} // namespace vantel::testing
