#pragma once

#include "platform/FileSystem.h"

#include <map>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace vantel::testing {

/// What programs see, and what the disk may hold in its place after a power cut.
template <typename State>
struct Stored {
    State current{};
    std::vector<State> older; ///< every state since the last sync, oldest first

    void change(State next) { older.push_back(std::exchange(current, std::move(next))); }
    void sync() { older.clear(); }
};

/// Folders and files in memory that remember what was never synced.
///
/// Stricter than most disks: a name is kept only once its folder was synced, even if the file itself was.
/// Folders are durable at once and are never removed; modes are durable at once. A copy is a disk of its own.
class MemoryDisk {
public:
    using FileNumber = int;

    struct File {
        unsigned mode = 0644;
        Stored<std::string> bytes;
    };

    /// Puts a file there, durably, with its folders.
    void plant(const FileURL& file, std::string contents, unsigned mode = 0644);
    std::optional<std::string> contents(const FileURL& file) const;
    std::optional<unsigned> mode(const FileURL& file) const;

    /// The names of the files in a folder, in order.
    std::vector<std::string> names(const FileURL& folder) const;

    /// Every disk that a power cut at this moment could leave. Of each name in a folder: what it leads or led
    /// to at any moment since the folder's last sync, whatever its other names do; so a file may have both
    /// its names, or neither. Of a file: its bytes of such a moment, or the change that came next, done up to
    /// any byte, with the rest missing or zeros.
    std::vector<MemoryDisk> afterPowerCut() const;
    /// One of them.
    MemoryDisk afterPowerCut(std::mt19937& random) const;

    void makeFolders(const FileURL& folder);
    bool hasFolder(const FileURL& folder) const { return m_folders.contains(folder); }
    void syncFolder(const FileURL& folder) { m_folders[folder].sync(); }

    /// A new empty file under a name that may have had another.
    FileNumber create(const FileURL& name, unsigned mode);
    std::optional<FileNumber> find(const FileURL& name) const;
    /// The file of that number, which outlives its names.
    File& file(FileNumber number) { return m_files[number]; }
    void rename(const FileURL& from, const FileURL& to);
    void remove(const FileURL& name);

private:
    using Names = std::map<std::string, FileNumber>;

    Names currentNames(const FileURL& folder) const;

    std::map<FileURL, Stored<Names>> m_folders{{"/", {}}};
    std::map<FileNumber, File> m_files;
};

} // namespace vantel::testing
