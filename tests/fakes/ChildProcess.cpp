#include "tests/fakes/ChildProcess.h"

#include <array>
#include <csignal>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vantel::testing {

namespace {

struct Pipe {
    int readEnd;
    int writeEnd;
};

Pipe makePipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        throw std::system_error(errno, std::generic_category(), "pipe2");
    return {ends[0], ends[1]};
}

} // namespace

ChildProcess::ChildProcess(const std::filesystem::path& program, std::vector<std::string> arguments) {
    const Pipe input = makePipe();
    const Pipe output = makePipe();
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, input.readEnd, STDIN_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, output.writeEnd, STDOUT_FILENO);
    arguments.insert(arguments.begin(), program.string());
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    const int error = ::posix_spawn(&m_process, program.c_str(), &actions, nullptr, pointers.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(input.readEnd);
    ::close(output.writeEnd);
    m_input = input.writeEnd;
    m_output = output.readEnd;
    if (error != 0)
        throw std::system_error(error, std::generic_category(), program.string());
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept
    : m_process(other.m_process)
    , m_input(std::exchange(other.m_input, -1))
    , m_output(std::exchange(other.m_output, -1))
    , m_status(std::exchange(other.m_status, 0)) {}

ChildProcess::~ChildProcess() {
    if (isRunning()) {
        kill();
        wait();
    }
    if (m_input >= 0)
        ::close(m_input);
    if (m_output >= 0)
        ::close(m_output);
}

std::string ChildProcess::readLine() {
    std::string line;
    char byte = 0;
    while (::read(m_output, &byte, 1) == 1 && byte != '\n')
        line += byte;
    return line;
}

void ChildProcess::writeLine(const std::string& line) {
    const std::string bytes = line + "\n";
    if (::write(m_input, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
        throw std::system_error(errno, std::generic_category(), "write");
}

void ChildProcess::kill() {
    if (isRunning())
        ::kill(m_process, SIGKILL);
}

void ChildProcess::pause() {
    ::kill(m_process, SIGSTOP);
    ::waitpid(m_process, nullptr, WUNTRACED);
}

void ChildProcess::resume() {
    ::kill(m_process, SIGCONT);
}

bool ChildProcess::isRunning() {
    reap(WNOHANG);
    return !m_status;
}

int ChildProcess::wait() {
    reap(0);
    return m_status.value_or(-1);
}

void ChildProcess::reap(int options) {
    int status = 0;
    if (m_status || ::waitpid(m_process, &status, options) != m_process)
        return;
    m_status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

} // namespace vantel::testing
