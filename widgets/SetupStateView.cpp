#include "widgets/SetupStateView.h"

#include "widgets/Elements.h"
#include "widgets/WTokens.h"

namespace vantel {

Element setupStateView(const Formats& formats) {
    const Element title = {Text{formats.translated("Halvo"), {.font = {14, FontWeight::medium}}}};
    const Element hint = {Text{formats.translated("Open the app once to fill this widget."),
                               {.font = {11}, .color = WTokens::textSecondary}}};
    return centeredCard({title, padded(hint, {.top = 6})});
}

} // namespace vantel
