#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace vantel::testing {

/// A program that runs beside the test, with this process's environment. Its standard input and output are
/// pipes to here. Killed at the end of the object's life, if it still runs.
class ChildProcess {
public:
    ChildProcess(const std::filesystem::path& program, std::vector<std::string> arguments);
    ChildProcess(ChildProcess&& other) noexcept;
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ChildProcess& operator=(ChildProcess&&) = delete;
    ~ChildProcess();

    /// Waits for the next line of output, and gives it without its line feed; what is left at the end.
    std::string readLine();
    void writeLine(const std::string& line);

    void kill();

    /// Stops it, returns once it stands still, and lets it go on.
    void pause();
    void resume();

    bool isRunning();

    /// Waits for the end, and gives the exit status, or 128 and the number of the signal that ended it.
    int wait();

private:
    void reap(int options);

    pid_t m_process = -1;
    int m_input = -1;
    int m_output = -1;
    std::optional<int> m_status;
};

} // namespace vantel::testing
