#include "host/doctor/ServiceFindings.h"

#include "core/WidgetShared.h"
#include "platform/VisibleText.h"

namespace vantel {

namespace {

/// From this version on the portal answers with plain values.
constexpr std::uint32_t firstWithReadOne = 2;

Finding ofBus(SessionBusFacts::Kind kind, const Formats& formats) {
    switch (kind) {
    case SessionBusFacts::Kind::answering:
        return {Verdict::ok, formats.translated("The session bus answers.")};
    case SessionBusFacts::Kind::silent:
        return {Verdict::fail, formats.translated("The session bus does not answer.")};
    case SessionBusFacts::Kind::none:
        break;
    }
    return {Verdict::warn, formats.translated("There is no session bus: the desktop's preferences do not "
                                              "reach the widgets, and nobody can ask them to reload.")};
}

Finding ofSettings(const ServiceAnswer& portal, const Formats& formats) {
    const char* method = portal.version < firstWithReadOne ? "Read" : "ReadOne";
    switch (portal.kind) {
    case ServiceAnswer::Kind::answering:
        return {Verdict::ok, filled(formats.translated("The settings portal answers (version %lld, %s)."),
                                    {std::to_string(portal.version), method})};
    case ServiceAnswer::Kind::silent:
        return {Verdict::warn, formats.translated("The settings portal does not answer.")};
    case ServiceAnswer::Kind::missing:
        break;
    }
    return {Verdict::warn, formats.translated("There is no settings portal: dark mode comes from the "
                                              "toolkit, contrast and text size from nowhere.")};
}

Finding ofLinksWithoutPortal(bool hasLinkProgram, const Formats& formats) {
    if (hasLinkProgram)
        return {Verdict::ok, formats.translated("There is no portal that opens links; xdg-open does.")};
    return {Verdict::fail,
            formats.translated("Nothing opens links: there is neither a portal for them nor xdg-open.")};
}

Finding ofLinks(const ServiceAnswer& portal, bool hasLinkProgram, const Formats& formats) {
    switch (portal.kind) {
    case ServiceAnswer::Kind::answering:
        return {Verdict::ok, filled(formats.translated("The portal that opens links answers (version %lld)."),
                                    {std::to_string(portal.version)})};
    case ServiceAnswer::Kind::silent:
        return {Verdict::warn, formats.translated("The portal that opens links does not answer.")};
    case ServiceAnswer::Kind::missing:
        break;
    }
    return ofLinksWithoutPortal(hasLinkProgram, formats);
}

Finding ofHandler(bool hasHandler, const Formats& formats) {
    const std::string scheme(WidgetShared::urlScheme);
    if (hasHandler)
        return {
            Verdict::ok,
            filled(formats.translated("An application is installed that opens links with %s:."), {scheme})};
    return {Verdict::warn,
            filled(formats.translated("No application is installed that opens links with %s:; a "
                                      "click on a card leads nowhere."),
                   {scheme})};
}

Finding ofLogin(bool isThere, const Formats& formats) {
    if (isThere)
        return {Verdict::ok, formats.translated("logind is there: it tells when the machine has slept.")};
    return {Verdict::warn,
            formats.translated("logind is not there: nobody tells when the machine has slept.")};
}

Finding ofTimeDate(bool isThere, const Formats& formats) {
    if (isThere)
        return {Verdict::ok, formats.translated("timedate1 is there: it tells of another time zone.")};
    return {Verdict::warn, formats.translated("timedate1 is not there: another time zone is noticed by its "
                                              "file alone.")};
}

Finding ofHost(const std::optional<ProcessFacts>& host, const Formats& formats) {
    if (!host)
        return {Verdict::ok, formats.translated("The widgets do not run.")};
    return {Verdict::ok, filled(formats.translated("The widgets run (process %lld, %s)."),
                                {std::to_string(host->number), visibleText(host->name)})};
}

} // namespace

Findings serviceFindings(const ServiceFacts& facts, const Formats& formats) {
    const SessionBusFacts& session = facts.session;
    Findings findings{ofBus(session.kind, formats)};
    if (session.kind == SessionBusFacts::Kind::answering) {
        findings.push_back(ofSettings(session.settings, formats));
        findings.push_back(ofLinks(session.openLinks, facts.links.hasProgram, formats));
        findings.push_back(ofHost(session.host, formats));
    } else {
        findings.push_back(ofLinksWithoutPortal(facts.links.hasProgram, formats));
    }
    findings.push_back(ofHandler(facts.links.hasHandler, formats));
    findings.push_back(ofLogin(facts.system.hasLogin, formats));
    findings.push_back(ofTimeDate(facts.system.hasTimeDate, formats));
    return findings;
}

} // namespace vantel
