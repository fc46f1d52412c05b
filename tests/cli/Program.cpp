#include "tests/cli/Program.h"

#include "tests/fakes/ReadFile.h"

#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vantel::testing {

namespace {

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    for (std::string& text : texts)
        result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

std::vector<std::string> assignments(const std::map<std::string, std::string>& environment) {
    std::vector<std::string> result;
    for (const auto& [name, value] : environment)
        result.push_back(name + "=" + value);
    return result;
}

class Redirections {
public:
    Redirections(const std::string& input, const std::string& output, const std::string& error) {
        ::posix_spawn_file_actions_init(&m_actions);
        ::posix_spawn_file_actions_addopen(&m_actions, STDIN_FILENO, input.c_str(), O_RDONLY, 0);
        ::posix_spawn_file_actions_addopen(&m_actions, STDOUT_FILENO, output.c_str(),
                                           O_WRONLY | O_CREAT | O_TRUNC, 0600);
        ::posix_spawn_file_actions_addopen(&m_actions, STDERR_FILENO, error.c_str(),
                                           O_WRONLY | O_CREAT | O_TRUNC, 0600);
    }
    Redirections(const Redirections&) = delete;
    Redirections& operator=(const Redirections&) = delete;
    ~Redirections() { ::posix_spawn_file_actions_destroy(&m_actions); }

    const posix_spawn_file_actions_t* get() const { return &m_actions; }

private:
    posix_spawn_file_actions_t m_actions{};
};

int exitStatusOf(pid_t child) {
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

} // namespace

Vantelctl::Vantelctl()
    : environment{{"PATH", "/usr/bin:/bin"},
                  {"TZ", "Europe/Berlin"},
                  {"LC_ALL", "en_GB.UTF-8"},
                  {"HOME", "/nonexistent"},
                  {"XDG_DATA_HOME", m_scratch.path().string()}} {}

Finished Vantelctl::operator()(const std::vector<std::string>& arguments, const std::string& input) const {
    const ScratchFolder streams;
    std::ofstream(streams / "input", std::ios::binary) << input;
    const Redirections redirections(streams / "input", streams / "output", streams / "error");
    std::vector<std::string> words = {VANTELCTL_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> variables = assignments(environment);
    pid_t child = 0;
    const int number = ::posix_spawn(&child, VANTELCTL_PROGRAM, redirections.get(), nullptr,
                                     pointers(words).data(), pointers(variables).data());
    if (number != 0)
        throw std::system_error(number, std::generic_category(), VANTELCTL_PROGRAM);
    const int status = exitStatusOf(child);
    return {status, readFile(streams / "output").value(), readFile(streams / "error").value()};
}

std::filesystem::path Vantelctl::container() const {
    return dataHome() / "group-containers" / "group.org.vantel.widgets";
}

std::filesystem::path dataFile(const std::string& name) {
    return std::filesystem::path(VANTEL_TEST_DATA) / name;
}

} // namespace vantel::testing
