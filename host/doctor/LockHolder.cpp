#include "host/doctor/LockHolder.h"

#include "platform/DataFile.h"

#include <cerrno>
#include <charconv>
#include <sstream>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace vantel {

namespace {

template <typename Number>
std::optional<Number> number(std::string_view text, int base) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole ? std::optional(value) : std::nullopt;
}

std::vector<std::string> words(const std::string& line) {
    std::istringstream stream(line);
    std::vector<std::string> found;
    for (std::string word; stream >> word;)
        found.push_back(word);
    return found;
}

struct LockLine {
    std::int64_t process;
    std::uint64_t device;
    std::uint64_t inode;
};

/// "1: FLOCK  ADVISORY  WRITE 1234 fe:00:5678 0 EOF"; a line of one that waits has "->" as its second word.
std::optional<LockLine> parseLine(const std::string& line) {
    constexpr std::size_t processWord = 4;
    constexpr std::size_t fileWord = 5;
    const auto found = words(line);
    if (found.size() <= fileWord || found[1] != "FLOCK")
        return std::nullopt;
    const std::string& file = found[fileWord];
    const auto first = file.find(':');
    const auto second = file.find(':', first + 1);
    if (first == std::string::npos || second == std::string::npos)
        return std::nullopt;
    const auto process = number<std::int64_t>(found[processWord], 10);
    const auto major = number<unsigned>(file.substr(0, first), 16);
    const auto minor = number<unsigned>(file.substr(first + 1, second - first - 1), 16);
    const auto inode = number<std::uint64_t>(file.substr(second + 1), 10);
    if (!process || !major || !minor || !inode)
        return std::nullopt;
    return LockLine{*process, ::makedev(*major, *minor), *inode};
}

/// Closes what it opened.
class Opened {
public:
    explicit Opened(const FileURL& file)
        : m_descriptor(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    ~Opened() {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }

    int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

std::optional<ProcessFacts> holderOf(int descriptor) {
    struct stat status{};
    const auto list = readFile("/proc/locks", systemFileSystem());
    if (!list || ::fstat(descriptor, &status) != 0)
        return std::nullopt;
    const auto holder = lockHolder(*list, status.st_dev, status.st_ino);
    return holder ? std::optional(processFacts(*holder)) : std::nullopt;
}

} // namespace

ProcessFacts processFacts(std::int64_t number) {
    const auto stat = readFile("/proc/" + std::to_string(number) + "/stat", systemFileSystem());
    return parseProcess(number, stat.value_or(""));
}

ProcessFacts parseProcess(std::int64_t number, std::string_view stat) {
    constexpr std::size_t toState = 2; // behind the bracket and a blank
    const auto open = stat.find('(');
    const auto close = stat.rfind(')');
    if (open == std::string_view::npos || close == std::string_view::npos || close + toState >= stat.size())
        return {.number = number};
    const char state = stat[close + toState];
    return {.number = number,
            .name = std::string(stat.substr(open + 1, close - open - 1)),
            .isStopped = state == 'T' || state == 't'};
}

LockFacts lockFacts(const FileURL& file) {
    const Opened opened(file);
    if (opened.descriptor() < 0)
        return {};
    if (::flock(opened.descriptor(), LOCK_SH | LOCK_NB) == 0)
        return {.kind = LockFacts::Kind::free};
    if (errno != EWOULDBLOCK)
        return {};
    return {.kind = LockFacts::Kind::held, .holder = holderOf(opened.descriptor())};
}

std::optional<std::int64_t> lockHolder(std::string_view list, std::uint64_t device, std::uint64_t inode) {
    std::istringstream lines{std::string(list)};
    std::optional<std::int64_t> onOtherDevice;
    for (std::string line; std::getline(lines, line);) {
        const auto found = parseLine(line);
        if (!found || found->inode != inode || found->process <= 0)
            continue;
        if (found->device == device)
            return found->process;
        onOtherDevice = found->process;
    }
    return onOtherDevice;
}

} // namespace vantel
