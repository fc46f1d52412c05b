#pragma once

#include "host/desk/PlacementStore.h"
#include "host/schedule/Mailbox.h"
#include "host/schedule/Worker.h"

#include <QObject>
#include <chrono>

namespace vantel {

/// Keeps the placements in their file, and has the disk hold up nobody: they are written on a thread of its
/// own. All functions belong to the window thread.
class PlacementSaver final : public QObject {
    Q_OBJECT

public:
    /// As a PlacementStore takes them. `files` outlives the program; `report` is called on the window thread,
    /// later.
    PlacementSaver(std::optional<FileURL> folder, FileSystem& files, PlacementStore::Report report,
                   QObject* parent = nullptr);

    /// What was saved in an earlier run, as PlacementStore::load has it. Waits for the disk: only for the
    /// start, before anything is saved.
    std::optional<Placements> load();

    /// Returns at once, unless the system gives no thread. Of those that come while one is being written the
    /// last is written, whole and durable.
    void save(const Placements& placements);

    /// For the end of the program: waits until the last save is on the disk or has failed, but no longer than
    /// `patience`. Whether it is over; if not, what was not being written yet never will be.
    bool drain(std::chrono::milliseconds patience);

private:
    struct Desired;

    Mailbox m_mailbox{this};
    std::shared_ptr<Desired> m_desired; ///< also the worker's, which may outlive this
    Worker m_worker;
};

} // namespace vantel
