#include "core/WidgetJournal.h"
#include "core/WidgetSnapshotStore.h"
#include "fuzz/MemoryContainer.h"
#include "tests/core/SampleJournal.h"
#include "tests/core/SampleSnapshot.h"

#include <algorithm>
#include <array>
#include <map>

#include <fuzzer/FuzzedDataProvider.h>

namespace vantel {
namespace {

using testing::FileOperation;
using testing::Lasting;
using testing::MemoryFileSystem;
using testing::sampleEntry;
using testing::sampleSnapshot;
using testing::sampleUuid;

/// What may be found of an entry.
enum class Fate { pending, unknown, gone };

constexpr std::array<int, 8> numbers = {EINTR, EIO, ENOSPC, EDQUOT, EACCES, EROFS, EMFILE, ENOLCK};

struct Refusal {
    int number;
    Lasting lasting;
};

/// A program of operations on one container, with faults between and within them, beside a model of what is
/// promised. A process that is killed is one to which everything fails from some call on, and another one.
class Operations {
public:
    explicit Operations(FuzzedDataProvider& input)
        : m_input(input) {}

    void run() {
        while (m_input.remaining_bytes() > 0 && m_steps++ < mostSteps) {
            step();
            expectNothingHeld(m_files);
        }
        begin();
        judgeJournal();
        judgeSnapshot();
    }

private:
    static constexpr int mostSteps = 60;

    enum class Kind {
        append,
        pending,
        remove,
        removeAll,
        write,
        load,
        stamp,
        removeSnapshot,
        fault,
        faultOfAKind,
        shortCall,
        restart,
        olderProgram,
        kMaxValue = olderProgram
    };

    void step() {
        switch (m_input.ConsumeEnum<Kind>()) {
        case Kind::append:
            return append();
        case Kind::pending:
            std::ignore = WidgetJournal::pending(m_files);
            return;
        case Kind::remove:
            return remove();
        case Kind::removeAll:
            return removeAll();
        case Kind::write:
            return write();
        case Kind::load:
            return load();
        case Kind::stamp:
            return stamp();
        case Kind::removeSnapshot:
            return removeSnapshot();
        case Kind::fault:
            return failAny();
        case Kind::faultOfAKind:
            return failOneKind();
        case Kind::shortCall:
            return shortenCalls();
        case Kind::restart:
            return begin();
        case Kind::olderProgram:
            return appendAsAnOlderProgram();
        }
    }

    int nth() { return m_input.ConsumeIntegralInRange(1, 40); }
    Lasting lasting() { return m_input.ConsumeBool() ? Lasting::once : Lasting::fromThenOn; }
    /// What is interrupted is tried again, and an interruption that never ends would be waited for.
    Refusal refusal() {
        const int number = m_input.PickValueInArray(numbers);
        return {number, number == EINTR ? Lasting::once : lasting()};
    }

    void failAny() {
        const Refusal refused = refusal();
        m_files.faults().fail(nth(), refused.number, refused.lasting);
    }

    void failOneKind() {
        const Refusal refused = refusal();
        m_files.faults().fail(operation(), nth(), refused.number, refused.lasting);
    }

    /// A byte at a time, to the end of a file that remembers each of them, takes longer than it teaches.
    void shortenCalls() {
        const FileOperation kind = operation();
        const int first = nth();
        const Lasting lasts = lasting();
        const std::size_t length = m_input.ConsumeIntegralInRange<std::size_t>(1, 100);
        m_files.faults().shorten(kind, first, lasts == Lasting::once ? length : 100 * length, lasts);
    }

    FileOperation operation() {
        return static_cast<FileOperation>(
            m_input.ConsumeIntegralInRange(0, static_cast<int>(FileOperation::linkTarget)));
    }

    /// Another process, on the same disk, to which nothing fails yet.
    void begin() { m_files = MemoryFileSystem(m_files.disk()); }

    void append() {
        const int entry = m_next++;
        const bool done = WidgetJournal::append(sampleEntry(entry), m_files).has_value();
        m_fates[entry] = done ? Fate::pending : Fate::unknown;
    }

    void remove() {
        const unsigned chosen = m_input.ConsumeIntegral<std::uint8_t>();
        std::set<Uuid> ids;
        for (const auto& [entry, fate] : m_fates)
            if ((chosen >> (entry % 8) & 1U) != 0)
                ids.insert(sampleUuid(entry));
        const bool done = WidgetJournal::remove(ids, m_files).has_value();
        for (auto& [entry, fate] : m_fates)
            if (ids.contains(sampleUuid(entry)))
                fate = afterRemoval(fate, done);
    }

    void removeAll() {
        const bool done = WidgetJournal::removeAll(m_files).has_value();
        for (auto& [entry, fate] : m_fates)
            fate = afterRemoval(fate, done);
    }

    static Fate afterRemoval(Fate fate, bool done) {
        if (done || fate == Fate::gone)
            return Fate::gone;
        return Fate::unknown;
    }

    void write() {
        const WidgetSnapshot snapshot = sampleSnapshot("account " + std::to_string(m_next++));
        if (store().write(snapshot, m_files))
            m_snapshot = snapshot;
    }

    void load() {
        const auto snapshot = store().load(m_files);
        promise(!snapshot || snapshot == m_snapshot, "a snapshot is the one that was written last, or none");
    }

    void stamp() {
        const Instant at = instantFromReference(m_next++);
        const std::string account = m_snapshot ? m_snapshot->accountID : "";
        const auto stamped = store().applyCompletion("b", at, account, m_files);
        promise(!stamped || !*stamped || m_snapshot, "no snapshot cannot be stamped");
        if (stamped && *stamped)
            m_snapshot = m_snapshot->applyingCompletion("b", at);
    }

    void removeSnapshot() {
        if (store().remove(m_files))
            m_snapshot.reset();
    }

    /// It knows no redo copy, and may leave any bytes behind; its last line is whole.
    void appendAsAnOlderProgram() {
        const FileURL journal = *WidgetShared::journalURL();
        std::string bytes = m_files.disk().contents(journal).value_or("");
        const std::string before = bytes;
        if (!bytes.empty() && !bytes.ends_with('\n'))
            bytes += m_input.ConsumeBool() ? "\n" : m_input.ConsumeRandomLengthString(8) + "\n";
        const int entry = m_next++;
        bytes += *encodeJournalEntry(sampleEntry(entry)) + "\n";
        if (const auto file = m_files.disk().find(journal)) {
            m_files.disk().file(*file).bytes.change(bytes);
            m_fates[entry] = Fate::pending;
        }
    }

    void judgeJournal() {
        const auto entries = WidgetJournal::pending(m_files);
        promise(entries.has_value(), "a sound disk can be read");
        for (const auto& [entry, fate] : m_fates) {
            const auto found = std::ranges::count(*entries, sampleEntry(entry));
            promise(fate != Fate::pending || found > 0, "what was acknowledged is pending");
            promise(fate != Fate::gone || found == 0, "what was removed is gone");
            promise(found <= 1, "nothing is pending twice");
        }
    }

    void judgeSnapshot() {
        promise(store().load(m_files) == m_snapshot, "the snapshot is the one that was written last");
        expectNothingHeld(m_files);
    }

    static WidgetSnapshotStore store() {
        return {*WidgetShared::snapshotURL(), *WidgetShared::snapshotLockURL()};
    }

    FuzzedDataProvider& m_input;
    MemoryFileSystem m_files;
    std::map<int, Fate> m_fates;
    std::optional<WidgetSnapshot> m_snapshot;
    int m_next = 1;
    int m_steps = 0;
};

} // namespace
} // namespace vantel

/// Whatever fails, and wherever a process is killed: what was acknowledged is there, and nothing is held.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vantel::useMemoryContainer();
    FuzzedDataProvider input(data, size);
    vantel::Operations(input).run();
    return 0;
}
