#include "host/desk/PlacementStore.h"

#include "platform/BaseFolders.h"
#include "platform/DataFile.h"

#include <cerrno>
#include <utility>

namespace vantel {

namespace {

constexpr int mostSetAside = 1000;
constexpr int mostLinks = 40; ///< as many as the system follows

bool hasNumber(const Error& error, int number) {
    const auto* system = std::get_if<SystemError>(&error);
    return system != nullptr && system->number == number;
}

bool saysMissing(const Error& error) {
    return hasNumber(error, ENOENT);
}

/// The file that a name leads to, through links to links. It need not be there yet.
Result<FileURL> behindLinks(FileURL file, FileSystem& files) {
    for (int link = 0; link < mostLinks; ++link) {
        const auto target = files.linkTarget(file);
        if (!target && (saysMissing(target.error()) || hasNumber(target.error(), EINVAL)))
            return file;
        if (!target)
            return target;
        file = file.parent_path() / *target;
    }
    return std::unexpected(SystemError{"readlink", file.string(), ELOOP});
}

Result<Placements> read(const FileURL& file, FileSystem& files) {
    const auto bytes = readFile(file, files);
    if (!bytes)
        return std::unexpected(bytes.error());
    return parsePlacements(*bytes);
}

} // namespace

std::optional<FileURL> stateFolder() {
    const auto base = stateHome();
    return base ? std::optional(*base / "vantel-widgets") : std::nullopt;
}

FileURL placementsFile(const FileURL& stateFolder) {
    return stateFolder / "placements.json";
}

PlacementStore::PlacementStore(std::optional<FileURL> folder, FileSystem& files, Report report)
    : m_folder(std::move(folder))
    , m_files(files)
    , m_report(std::move(report)) {}

std::optional<Placements> PlacementStore::load() {
    if (!m_folder)
        return std::nullopt;
    auto placements = read(placementsFile(*m_folder), m_files);
    if (placements)
        return *std::move(placements);
    return saysMissing(placements.error()) ? std::nullopt : setAside(placements.error());
}

std::optional<Placements> PlacementStore::setAside(const Error& reason) {
    const FileURL file = placementsFile(*m_folder);
    const auto aside = freeName();
    m_mayWrite = aside && m_files.rename(file, *aside);
    if (m_mayWrite)
        std::ignore = syncDirectory(*m_folder, m_files);
    const std::string end = m_mayWrite ? "It is kept as " + aside->filename().string() + "."
                                       : "It cannot be set aside, so changes are not saved.";
    m_report("The places of the widgets cannot be read from " + file.string() + " (" + message(reason) +
             "). " + end);
    return std::nullopt;
}

std::optional<FileURL> PlacementStore::freeName() const {
    for (int number = 1; number <= mostSetAside; ++number) {
        FileURL candidate = *m_folder / ("placements.json.unreadable-" + std::to_string(number));
        const auto status = statusIfPresent(candidate, m_files);
        if (!status)
            return std::nullopt;
        if (!*status)
            return candidate;
    }
    return std::nullopt;
}

void PlacementStore::save(const Placements& placements) {
    if (!m_mayWrite)
        return;
    const auto written = write(placements);
    if (!written)
        return sayFailed(message(written.error()));
    m_saidFailed = false;
}

Result<void> PlacementStore::write(const Placements& placements) {
    if (!m_folder)
        return std::unexpected(SystemError{"open", "the state folder", ENOENT});
    const auto bytes = writePlacements(placements);
    if (!bytes)
        return std::unexpected(bytes.error());
    if (auto made = m_files.createDirectories(*m_folder); !made)
        return made;
    const auto file = behindLinks(placementsFile(*m_folder), m_files);
    if (!file)
        return std::unexpected(file.error());
    return writeFileAtomically(*file, *bytes, m_files);
}

void PlacementStore::sayFailed(const std::string& why) {
    if (!std::exchange(m_saidFailed, true))
        m_report("The places of the widgets cannot be saved (" + why + ").");
}

} // namespace vantel
