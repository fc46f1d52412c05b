#pragma once

#include "platform/FileSystem.h"

#include <optional>
#include <vector>

namespace vantel::testing {

/// The operations of FileSystem.
enum class FileOperation {
    createDirectories,
    names,
    open,
    close,
    lock,
    unlock,
    status,
    isNamed,
    read,
    readAt,
    write,
    seekToEnd,
    seek,
    truncate,
    sync,
    syncData,
    changeMode,
    rename,
    remove,
    linkTarget
};

const char* name(FileOperation operation);

enum class Lasting { once, fromThenOn };

/// Which calls go wrong, and how; and which calls there were. Several faults may be planned; each counts for
/// itself.
class FaultPlan {
public:
    /// The nth call from now on, of any operation or of one, fails.
    void fail(int nth, int number, Lasting lasting);
    void fail(FileOperation operation, int nth, int number, Lasting lasting);

    /// The nth `read`, `readAt` or `write` from now on takes at most `length` bytes.
    void shorten(FileOperation operation, int nth, std::size_t length, Lasting lasting);

    /// The calls so far, the failed ones too.
    const std::vector<FileOperation>& calls() const { return m_calls; }

    /// How a call goes: nothing fails when `number` is 0.
    struct Outcome {
        int number = 0;
        std::size_t length = std::string_view::npos;
    };

    Outcome enter(FileOperation operation);

private:
    struct Fault {
        std::optional<FileOperation> operation; ///< absent for any
        int callsToGo;
        Lasting lasting;
        Outcome outcome;

        bool strikes(FileOperation called);
    };

    std::vector<Fault> m_faults;
    std::vector<FileOperation> m_calls;
};

} // namespace vantel::testing
