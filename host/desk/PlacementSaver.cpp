#include "host/desk/PlacementSaver.h"

#include <QCoreApplication>
#include <QEvent>
#include <mutex>
#include <utility>

namespace vantel {

struct PlacementSaver::Desired {
    Desired(std::optional<FileURL> folder, FileSystem& files, PlacementStore::Report report)
        : store(std::move(folder), files, std::move(report)) {}

    PlacementStore store; ///< the window thread's before the first save, then the worker's
    std::mutex mutex;
    std::optional<Placements> latest; ///< absent once it is being written

    void set(const Placements& placements) {
        const std::scoped_lock lock(mutex);
        latest = placements;
    }

    std::optional<Placements> take() {
        const std::scoped_lock lock(mutex);
        return std::exchange(latest, std::nullopt);
    }

    void write() {
        if (const auto placements = take())
            store.save(*placements);
    }
};

PlacementSaver::PlacementSaver(std::optional<FileURL> folder, FileSystem& files,
                               PlacementStore::Report report, QObject* parent)
    : QObject(parent)
    , m_desired(std::make_shared<Desired>(
          std::move(folder), files,
          [to = m_mailbox.address(), report = std::move(report)](const std::string& sentence) {
              to.post([report, sentence] { report(sentence); });
          })) {}

std::optional<Placements> PlacementSaver::load() {
    return m_desired->store.load();
}

void PlacementSaver::save(const Placements& placements) {
    m_desired->set(placements);
    if (!m_worker.run([desired = m_desired] { desired->write(); }))
        m_desired->write();
}

bool PlacementSaver::drain(std::chrono::milliseconds patience) {
    const bool isDone = m_worker.drain(patience);
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    return isDone;
}

} // namespace vantel
