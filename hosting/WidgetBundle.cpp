#include "hosting/WidgetBundle.h"

#include <algorithm>

namespace vantel {

const StaticConfiguration* WidgetBundle::widget(std::string_view kind) const {
    const auto found = std::ranges::find(widgets, kind, &StaticConfiguration::kind);
    return found == widgets.end() ? nullptr : &*found;
}

const IntentDeclaration* WidgetBundle::intent(std::string_view name) const {
    const auto found = std::ranges::find(intents, name, &IntentDeclaration::name);
    return found == intents.end() ? nullptr : &*found;
}

} // namespace vantel
