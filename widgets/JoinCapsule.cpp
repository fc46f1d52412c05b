#include "widgets/JoinCapsule.h"

#include "widgets/Elements.h"
#include "widgets/WTokens.h"
#include "widgets/WidgetLinks.h"

namespace vantel {

namespace {

std::string labelText(const JoinCapsule& capsule, const Formats& formats) {
    if (!capsule.provider)
        return formats.translated("Join");
    return filled(formats.translated("Join %s"), {*capsule.provider});
}

} // namespace

Element element(const JoinCapsule& capsule, const Formats& formats) {
    const TokenColor& foreground = capsule.inverted ? WTokens::ink : WTokens::paper;
    const TokenColor& background = capsule.inverted ? WTokens::paper : WTokens::ink;
    const Font glyphFont{.size = capsule.compact ? 9.0 : 10.0};
    const Font labelFont{.size = capsule.compact ? 10.0 : 10.5, .weight = FontWeight::semibold};
    const std::string label = labelText(capsule, formats);
    const Element content = {
        Row{.children = {{Text{"▸", {.font = glyphFont, .color = foreground}}},
                         {Text{label, {.font = labelFont, .color = foreground, .lineLimit = 1}}}},
            .spacing = 5}};
    const Padding padding = capsule.compact ? Padding::symmetric(11, 4) : Padding::symmetric(12, 5);
    const Element pill = {Capsule{background, padded(content, padding)}};
    return labelled({Link{WidgetLinks::join(capsule.joinURL), pill}}, label);
}

} // namespace vantel
