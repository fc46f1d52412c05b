#pragma once

#include "tests/fakes/FaultPlan.h"
#include "tests/fakes/MemoryDisk.h"

namespace vantel::testing {

/// One process's files on a MemoryDisk, which fail and tear as its FaultPlan says.
///
/// A call that fails does nothing; only a `close` that fails has closed all the same, as on Linux. The test
/// fails where the process would wait for its own lock for ever, and where it uses a descriptor that is not
/// open.
class MemoryFileSystem final : public FileSystem {
public:
    explicit MemoryFileSystem(MemoryDisk disk = {})
        : m_disk(std::move(disk)) {}

    MemoryDisk& disk() { return m_disk; }
    const MemoryDisk& disk() const { return m_disk; }
    FaultPlan& faults() { return m_faults; }
    const FaultPlan& faults() const { return m_faults; }

    bool isAnyDescriptorOpen() const { return !m_open.empty(); }
    bool isAnyLockHeld() const;

    Result<void> createDirectories(const FileURL& directory) override;
    Result<std::vector<std::string>> names(const FileURL& directory) override;
    Result<Descriptor> open(const FileURL& file, OpenMode mode) override;
    Result<void> close(Descriptor descriptor) override;
    Result<void> lock(Descriptor descriptor) override;
    Result<void> unlock(Descriptor descriptor) override;
    Result<FileStatus> status(const FileURL& file) override;
    Result<FileStatus> status(Descriptor descriptor) override;
    Result<bool> isNamed(Descriptor descriptor, const FileURL& file) override;
    Result<std::size_t> read(Descriptor descriptor, std::span<char> buffer) override;
    Result<std::size_t> readAt(Descriptor descriptor, std::uint64_t offset, std::span<char> buffer) override;
    Result<std::size_t> write(Descriptor descriptor, std::string_view bytes) override;
    Result<std::uint64_t> seekToEnd(Descriptor descriptor) override;
    Result<void> seek(Descriptor descriptor, std::uint64_t offset) override;
    Result<void> truncate(Descriptor descriptor, std::uint64_t length) override;
    Result<void> sync(Descriptor descriptor) override;
    Result<void> syncData(Descriptor descriptor) override;
    Result<void> changeMode(Descriptor descriptor, unsigned mode) override;
    Result<void> rename(const FileURL& from, const FileURL& to) override;
    Result<void> remove(const FileURL& file) override;
    Result<FileURL> linkTarget(const FileURL& link) override;

private:
    struct OpenFile {
        FileURL path;
        std::optional<MemoryDisk::FileNumber> number; ///< absent for a folder
        OpenMode mode;
        std::uint64_t position = 0;
        bool isLocked = false;
    };

    /// A call on a descriptor, once no fault stops it.
    struct Use {
        OpenFile& open;
        std::size_t length; ///< how much a read or write may take
    };

    struct FileUse {
        OpenFile& open;
        MemoryDisk::File& file;
        std::size_t length;
    };

    Result<std::size_t> enter(FileOperation operation, const FileURL& file);
    Result<Use> use(FileOperation operation, Descriptor descriptor);
    Result<FileUse> useFile(FileOperation operation, Descriptor descriptor);
    Result<std::optional<MemoryDisk::FileNumber>> resolve(const FileURL& file, OpenMode mode);

    MemoryDisk m_disk;
    FaultPlan m_faults;
    std::map<Descriptor, OpenFile> m_open;
    Descriptor m_lastDescriptor = 2; ///< none is used twice, so that a stale one is noticed
};

} // namespace vantel::testing
