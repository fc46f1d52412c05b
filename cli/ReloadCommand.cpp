#include "cli/Answer.h"
#include "cli/Commands.h"
#include "cli/SessionBus.h"
#include "cli/WidgetNames.h"
#include "widgets/VantelWidgetsBundle.h"

namespace vantel::commands {

CommandResult reload(const Arguments& arguments, const Surroundings&) {
    std::optional<std::string> kind;
    if (arguments.kind) {
        const WidgetBundle bundle = VantelWidgetsBundle::body();
        const StaticConfiguration* widget = findWidget(bundle, *arguments.kind);
        if (widget == nullptr)
            return unknownWidget("reload", *arguments.kind);
        kind = widget->kind;
    }
    if (auto asked = requestReload(kind); !asked)
        return failed("reload", asked.error());
    return done(arguments.form, "The widget host was asked to reload.\n");
}

} // namespace vantel::commands
