#include "host/schedule/FileWatch.h"

#include <QSocketNotifier>
#include <array>
#include <cstddef>
#include <cstring>
#include <filesystem>

#include <sys/inotify.h>
#include <unistd.h>

namespace vantel {

namespace {

constexpr std::uint32_t replacements =
    IN_CREATE | IN_MOVED_TO | IN_CLOSE_WRITE | IN_DELETE | IN_MOVED_FROM | IN_ONLYDIR;

using Buffer = std::array<std::byte, 4096>;

/// Whether one of the events in a buffer is about a name. One that tells of lost events counts as well.
bool tellsOf(const std::string& name, const Buffer& buffer, std::size_t size) {
    std::size_t position = 0;
    while (position + sizeof(inotify_event) <= size) {
        inotify_event event{};
        std::memcpy(&event, buffer.data() + position, sizeof event);
        position += sizeof event;
        if ((event.mask & IN_Q_OVERFLOW) != 0)
            return true;
        const char* text = reinterpret_cast<const char*>(buffer.data() + position); // padded with zeros
        if (std::string_view(text, ::strnlen(text, event.len)) == name)
            return true;
        position += event.len;
    }
    return false;
}

} // namespace

FileWatch::FileWatch(const std::string& file, QObject* parent)
    : QObject(parent)
    , m_name(std::filesystem::path(file).filename())
    , m_descriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    const std::filesystem::path folder = std::filesystem::path(file).parent_path();
    if (m_descriptor < 0 || ::inotify_add_watch(m_descriptor, folder.c_str(), replacements) < 0)
        return;
    m_notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &FileWatch::read);
}

FileWatch::~FileWatch() {
    delete m_notifier;
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

void FileWatch::read() {
    alignas(inotify_event) Buffer buffer;
    bool isChanged = false;
    ssize_t size = 0;
    while ((size = ::read(m_descriptor, buffer.data(), buffer.size())) > 0)
        isChanged = tellsOf(m_name, buffer, static_cast<std::size_t>(size)) || isChanged;
    if (isChanged)
        Q_EMIT changed();
}

} // namespace vantel
