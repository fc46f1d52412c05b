#include "host/doctor/DesktopFindings.h"

#include "platform/VisibleText.h"

namespace vantel {

namespace {

bool isChosen(const DesktopFacts& facts, BackEnd backEnd) {
    return facts.choice && facts.choice->backEnd == backEnd;
}

Finding onX11(const DesktopFacts& facts, const Formats& formats) {
    const std::string display = visibleText(facts.display);
    if (!facts.x11)
        return {Verdict::fail, filled(formats.translated("The X server %s does not answer."), {display})};
    return {Verdict::ok, filled(formats.translated("The widgets stand on the X server %s."), {display})};
}

Finding backEnd(const DesktopFacts& facts, const Formats& formats) {
    if (isChosen(facts, BackEnd::toolkit))
        return {Verdict::ok, filled(formats.translated("The widgets draw on “%s”, as QT_QPA_PLATFORM says."),
                                    {visibleText(facts.platform)})};
    if (isChosen(facts, BackEnd::wayland))
        return {Verdict::ok,
                filled(formats.translated("The widgets stand on layers of the compositor %s, below "
                                          "all windows."),
                       {visibleText(facts.waylandDisplay)})};
    if (isChosen(facts, BackEnd::x11))
        return onX11(facts, formats);
    return {Verdict::fail, filled(formats.translated("The widgets find nothing to stand on: %s."),
                                  {formats.translated(sentenceKey(facts.choice.error()))})};
}

Finding reason(BackEndReason reason, const Formats& formats) {
    return {Verdict::ok,
            filled(formats.translated("That is so because %s."), {formats.translated(sentenceKey(reason))})};
}

Finding unmanaged(const WindowManager& manager, const std::string& name, const Formats& formats) {
    if (isTiling(manager))
        return {Verdict::ok, filled(formats.translated("The window manager is %s. The widgets lie below all "
                                                       "windows, and it does not manage them."),
                                    {name})};
    return {Verdict::warn,
            filled(formats.translated("The window manager is %s. It keeps no window below others on "
                                      "request, so the widgets may lie above some."),
                   {name})};
}

Finding mode(const WindowManager& manager, const Formats& formats) {
    const std::string name =
        manager.name.empty() ? formats.translated("without a name") : visibleText(manager.name);
    switch (windowMode(manager)) {
    case WindowMode::normalBelow:
        return {Verdict::ok, filled(formats.translated("The window manager is %s. The widgets are normal "
                                                       "windows that it keeps below others."),
                                    {name})};
    case WindowMode::dockBelow:
        return {Verdict::ok, filled(formats.translated("The window manager is %s. The widgets are docks "
                                                       "that reserve no room, which it keeps below "
                                                       "windows."),
                                    {name})};
    case WindowMode::overrideRedirect:
        break;
    }
    return unmanaged(manager, name, formats);
}

Finding showDesktop(const WindowManager& manager, const Formats& formats) {
    switch (onShowDesktop(manager)) {
    case ShowDesktop::keeps:
        return {Verdict::ok, formats.translated("The widgets stay when it shows the desktop.")};
    case ShowDesktop::hides:
        return {Verdict::warn,
                formats.translated("It hides the widgets with all windows when it shows the desktop.")};
    case ShowDesktop::unknown:
        break;
    }
    return {Verdict::ok,
            formats.translated("Whether the widgets stay when it shows the desktop is not known.")};
}

Findings ofManager(const WindowManager& manager, const Formats& formats) {
    if (manager.presence == WindowManager::Presence::none)
        return {{Verdict::warn, formats.translated("No window manager runs, so nothing keeps the widgets "
                                                   "below other windows.")}};
    return {mode(manager, formats), showDesktop(manager, formats)};
}

Finding ofBlending(Blending blending, const Formats& formats) {
    if (blending == Blending::blended)
        return {Verdict::ok,
                formats.translated("Windows are blended: the cards have shadows and soft corners.")};
    return {Verdict::ok,
            formats.translated("Windows are not blended: the cards have no shadows, and hard corners.")};
}

} // namespace

Findings desktopFindings(const DesktopFacts& facts, const Formats& formats) {
    Findings findings{backEnd(facts, formats)};
    if (facts.choice)
        findings.push_back(reason(facts.choice->reason, formats));
    if (!facts.x11 || !isChosen(facts, BackEnd::x11))
        return findings;
    for (Finding& finding : ofManager(facts.x11->manager, formats))
        findings.push_back(std::move(finding));
    findings.push_back(ofBlending(facts.x11->blending, formats));
    return findings;
}

} // namespace vantel
