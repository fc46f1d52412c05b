#include "cli/CommandLine.h"
#include "platform/FatalError.h"
#include "platform/FormatLocale.h"
#include "platform/InstantText.h"
#include "platform/LocalizedFormats.h"
#include "platform/MessageCatalogue.h"
#include "platform/VisibleText.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include <unistd.h>

namespace vantel {

namespace {

int report(ExitStatus status, const std::string& what, const std::string& why) {
    const std::string line =
        "vantelctl: " + (what.empty() ? "" : visibleText(what) + ": ") + visibleText(why) + "\n";
    std::fputs(line.c_str(), stderr);
    return static_cast<int>(status);
}

/// An answer that did not arrive is a failure, whatever the command did.
int print(const std::string& text) {
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (!isWritten || std::fflush(stdout) != 0)
        return report(ExitStatus::failed, "standard output", "it cannot be written");
    return static_cast<int>(ExitStatus::done);
}

bool isColorTerminal() {
    const char* noColor = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    const bool isForbidden = noColor != nullptr && *noColor != '\0';
    const bool isDumb = terminal == nullptr || std::string_view(terminal) == "dumb";
    return !isForbidden && !isDumb && ::isatty(STDOUT_FILENO) == 1;
}

int run(const Invocation& invocation) {
    const SystemCalendar calendar = SystemCalendar::current();
    Instant now = SystemClock().now();
    if (const auto& at = invocation.arguments.at) {
        const auto given = parseInstant(*at, calendar);
        if (!given)
            return report(ExitStatus::wrongUsage, "--at", "\"" + *at + "\" is not an instant");
        now = *given;
    }
    const FixedClock clock(now);
    const LocalizedFormats formats(currentFormatLocale());
    const auto answer =
        invocation.command(invocation.arguments, {clock, calendar, formats, isColorTerminal()});
    if (!answer)
        return report(answer.error().status, answer.error().what, answer.error().why);
    return print(*answer);
}

int main(int count, const char* const* words) {
    std::signal(SIGXFSZ, SIG_IGN); // A file that may not grow is an error to report, not the end.
    useMessageCatalogue();
    const auto invocation = parseCommandLine(count, words);
    if (invocation)
        return run(*invocation);
    if (invocation.error().status == ExitStatus::done)
        return print(invocation.error().text);
    return report(invocation.error().status, "", invocation.error().text);
}

} // namespace

} // namespace vantel

int main(int count, char** words) {
    try {
        return vantel::main(count, words);
    } catch (const std::exception& error) {
        return vantel::report(vantel::ExitStatus::failed, "fatal", error.what());
    }
}
