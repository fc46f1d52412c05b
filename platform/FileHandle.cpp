#include "platform/FileHandle.h"

#include <cerrno>

namespace vantel {

namespace {

bool isInterruption(const Error& error) {
    const auto* system = std::get_if<SystemError>(&error);
    return system != nullptr && system->number == EINTR;
}

constexpr std::size_t smallestRead = 4096;

std::unexpected<Error> tooLong() {
    return std::unexpected<Error>(SystemError{"read", "what is longer than any file of ours", EFBIG});
}

} // namespace

Result<std::string> FileHandle::readToEnd() {
    const auto status = m_files.status(m_descriptor);
    if (!status)
        return std::unexpected(status.error());
    if (status->kind != FileStatus::Kind::regular)
        return std::unexpected(SystemError{"read", "what is not a regular file", EINVAL});
    if (status->size > longestRead)
        return tooLong();
    return readFrom(status->size);
}

Result<std::string> FileHandle::readFrom(std::size_t expected) {
    std::string bytes;
    std::size_t length = 0;
    while (length <= longestRead) {
        if (length == bytes.size())
            bytes.resize(length == 0 ? expected + smallestRead : length * 2);
        const auto count = m_files.read(m_descriptor, std::span(bytes).subspan(length));
        if (!count && isInterruption(count.error()))
            continue;
        if (!count)
            return std::unexpected(count.error());
        length += *count;
        if (*count > 0)
            continue;
        bytes.resize(length);
        return bytes;
    }
    return tooLong();
}

Result<char> FileHandle::byteAt(std::uint64_t offset) {
    char byte = 0;
    const auto count = m_files.readAt(m_descriptor, offset, std::span(&byte, 1));
    if (!count)
        return std::unexpected(count.error());
    return byte;
}

Result<void> FileHandle::write(std::string_view contents) {
    while (!contents.empty()) {
        const auto count = m_files.write(m_descriptor, contents);
        if (!count && isInterruption(count.error()))
            continue;
        if (!count)
            return std::unexpected(count.error());
        contents.remove_prefix(*count);
    }
    return {};
}

} // namespace vantel
