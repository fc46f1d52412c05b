#pragma once

#include "host/desk/Placements.h"
#include "platform/FileSystem.h"

#include <functional>
#include <optional>
#include <string>

namespace vantel {

/// `$XDG_STATE_HOME/vantel-widgets`, under `~/.local/state` when the variable is unset, empty or relative.
/// Absent when there is no absolute base. Reads the environment on each call.
std::optional<FileURL> stateFolder();

/// The file in that folder that remembers where the widgets stand.
FileURL placementsFile(const FileURL& stateFolder);

/// The file that remembers where the widgets stand: `placements.json` in a folder that is private to the
/// user. Blocks for as long as the disk takes. For one thread at a time.
class PlacementStore {
public:
    /// Gets one sentence for people about what went wrong.
    using Report = std::function<void(const std::string&)>;

    /// Without a folder nothing is kept, which is reported when something should be.
    PlacementStore(std::optional<FileURL> folder, FileSystem& files, Report report);

    /// What was saved; absent when there is nothing yet, or nothing that can be used. A file that cannot be
    /// read, or that another version wrote, is renamed to `placements.json.unreadable-N` and reported; where
    /// even that fails, nothing is ever written in its place.
    std::optional<Placements> load();

    /// Publishes the placements, whole and durable. Where the name is a link, the file that it leads to is
    /// replaced, and the link stays. A failure is reported once, until a save succeeds again.
    void save(const Placements& placements);

private:
    std::optional<Placements> setAside(const Error& reason);
    std::optional<FileURL> freeName() const;
    Result<void> write(const Placements& placements);
    void sayFailed(const std::string& why);

    std::optional<FileURL> m_folder;
    FileSystem& m_files;
    Report m_report;
    bool m_mayWrite = true;
    bool m_saidFailed = false;
};

} // namespace vantel
