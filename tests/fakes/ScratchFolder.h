#pragma once

#include "tests/fakes/ScopedEnvironment.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace vantel::testing {

/// Memory where the system has some, else where temporary files lie: for what would wait for a disk most of
/// the time, which proves nothing there.
inline std::filesystem::path quickFolder() {
    const std::filesystem::path memory = "/dev/shm";
    return std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
}

/// An empty folder of its own for one test, deleted with everything in it at the end of the object's life.
/// It lies where temporary files lie, or under `base`.
class ScratchFolder {
public:
    explicit ScratchFolder(const std::filesystem::path& base = std::filesystem::temp_directory_path()) {
        std::string pattern = base / "vantel-XXXXXX";
        if (::mkdtemp(pattern.data()) == nullptr)
            throw std::system_error(errno, std::generic_category(), pattern);
        m_path = pattern;
    }

    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    const std::filesystem::path& path() const { return m_path; }
    std::filesystem::path operator/(const std::filesystem::path& name) const { return m_path / name; }

private:
    std::filesystem::path m_path;
};

/// A scratch folder that is the user's data folder meanwhile, so that the shared container lies in it.
class ScratchDataHome {
public:
    explicit ScratchDataHome(const std::filesystem::path& base = std::filesystem::temp_directory_path())
        : m_folder(base)
        , m_variable("XDG_DATA_HOME", m_folder.path().string()) {}

    const std::filesystem::path& path() const { return m_folder.path(); }

private:
    ScratchFolder m_folder;
    ScopedEnvironment m_variable;
};

} // namespace vantel::testing
