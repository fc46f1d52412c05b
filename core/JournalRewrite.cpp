#include "core/JournalRewrite.h"

#include "platform/DataFile.h"

namespace vantel {

using RedoCopy::Plan;

namespace {

Result<void> overwrite(FileHandle& handle, std::string_view contents) {
    if (auto truncated = handle.truncate(0); !truncated)
        return truncated;
    if (auto sought = handle.seek(0); !sought)
        return sought;
    return writeAndSync(handle, contents);
}

/// Goes on from the copy to its end. Lines that came meanwhile are in a copy of their own before the journal,
/// which holds them alone, is touched.
Result<void> finish(const LockedJournal& journal, const Plan& copied, const Plan& wanted,
                    std::string_view bytes) {
    if (wanted != copied)
        if (auto begun = RedoCopy::make(wanted, journal.file, journal.files); !begun)
            return begun;
    const auto done = bytes == wanted.contents ? journal.handle.synchronizeData()
                                               : overwrite(journal.handle, wanted.contents);
    return done ? RedoCopy::remove(journal.file, journal.files) : done;
}

/// What the journal holds once an unfinished rewrite is finished, and how finishing it went.
struct Opened {
    std::string bytes;
    Result<void> finished;
};

/// Absent, and nothing is read, where no rewrite was left undone.
Result<std::optional<Opened>> openUnfinished(const LockedJournal& journal) {
    const auto copied = RedoCopy::unfinished(journal.file, journal.files);
    if (!copied)
        return std::unexpected(copied.error());
    if (!*copied)
        return std::nullopt;
    const auto bytes = journal.handle.readToEnd();
    if (!bytes)
        return std::unexpected(bytes.error());
    Plan wanted = RedoCopy::withLinesBeyond(**copied, *bytes);
    auto finished = finish(journal, **copied, wanted, *bytes);
    return Opened{std::move(wanted.contents), std::move(finished)};
}

/// For a disk that refuses to put the old lines back now.
Result<void> planToRestore(const LockedJournal& journal, std::string_view before, Result<void> failed) {
    std::ignore = RedoCopy::make({std::string(before), {}}, journal.file, journal.files);
    return failed;
}

} // namespace

Result<void> writeAndSync(FileHandle& handle, std::string_view bytes) {
    if (auto written = handle.write(bytes); !written)
        return written;
    return handle.synchronizeData();
}

Result<void> finishRewrite(const LockedJournal& journal) {
    const auto opened = openUnfinished(journal);
    if (!opened)
        return std::unexpected(opened.error());
    if (!*opened)
        return {};
    const Result<void>& finished = (*opened)->finished;
    return finished ? journal.handle.seek(0) : finished;
}

Result<std::string> readJournal(const LockedJournal& journal) {
    auto opened = openUnfinished(journal);
    if (!opened)
        return std::unexpected(opened.error());
    return *opened ? std::move((*opened)->bytes) : journal.handle.readToEnd();
}

Result<void> rewriteJournal(const LockedJournal& journal, const Plan& plan, std::string_view before) {
    const bool needsCopy = !plan.contents.empty();
    auto done = needsCopy ? RedoCopy::make(plan, journal.file, journal.files) : Result<void>();
    if (done) {
        done = overwrite(journal.handle, plan.contents);
        if (!done && !overwrite(journal.handle, before))
            return planToRestore(journal, before, done);
    }
    if (needsCopy)
        std::ignore = RedoCopy::remove(journal.file, journal.files);
    return done;
}

} // namespace vantel
