#include "host/doctor/Doctor.h"

#include "host/app/Display.h"
#include "host/doctor/LookAround.h"
#include "host/doctor/Question.h"

#include <cstdio>
#include <cstdlib>

namespace vantel {

namespace {

using Deadline = std::chrono::steady_clock::time_point;

constexpr std::chrono::milliseconds patience{900};

std::string environment(const char* variable) {
    const char* value = std::getenv(variable);
    return value == nullptr ? "" : value;
}

std::optional<SessionOnX11> askX11(const std::string& display) {
    return display.empty() ? std::nullopt : lookAtX11();
}

Findings& operator+=(Findings& findings, const Findings& more) {
    findings.insert(findings.end(), more.begin(), more.end());
    return findings;
}

/// All are asked at once, so that all have the whole time.
Findings findAll(Deadline deadline, const Formats& formats) {
    const DisplayFacts display = displayFacts(WantedBackEnd::automatic);
    DesktopFacts desktop{.platform = display.platform,
                         .display = environment("DISPLAY"),
                         .waylandDisplay = environment("WAYLAND_DISPLAY"),
                         .choice = chooseBackEnd(display)};
    Question<std::optional<SessionOnX11>> x11([display = desktop.display] { return askX11(display); });
    Question<SessionBusFacts> sessionBus(lookAtSessionBus);
    Question<SystemBusFacts> systemBus(lookAtSystemBus);
    Question<LinkFacts> links(lookAtApplications);
    Question<StorageFacts> storage(lookAtStorage);
    desktop.x11 = x11.answerBy(deadline).value_or(std::nullopt);
    const ServiceFacts services{.session = sessionBus.answerBy(deadline).value_or(
                                    SessionBusFacts{.kind = SessionBusFacts::Kind::silent}),
                                .system = systemBus.answerBy(deadline).value_or(SystemBusFacts{}),
                                .links = links.answerBy(deadline).value_or(LinkFacts{})};
    const auto stored = storage.answerBy(deadline);
    Findings findings = desktopFindings(desktop, formats);
    findings += serviceFindings(services, formats);
    findings += stored ? storageFindings(*stored, formats) : silentStorage(formats);
    return findings;
}

} // namespace

int examine(const Formats& formats) {
    const Findings findings = findAll(std::chrono::steady_clock::now() + patience, formats);
    std::fputs(printed(findings).c_str(), stdout);
    return exitStatus(findings);
}

} // namespace vantel
