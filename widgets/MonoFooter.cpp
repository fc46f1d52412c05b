#include "widgets/MonoFooter.h"

#include "widgets/Elements.h"
#include "widgets/WTokens.h"

namespace vantel {

namespace {

Element footerText(std::string text) {
    constexpr Font font{.size = 9.5, .design = FontDesign::monospaced};
    return {Text{std::move(text), {.font = font, .color = PrimaryColor{0.45}, .lineLimit = 1}}};
}

} // namespace

Element monoFooter(std::string leading, std::optional<std::string> trailing) {
    std::vector<Element> texts = {footerText(std::move(leading))};
    if (trailing) {
        texts.push_back({Spacer{.minLength = 4}});
        texts.push_back(footerText(std::move(*trailing)));
    }
    const Element rule = padded({Rule{.color = WTokens::hairline}}, {.bottom = 7});
    return {Column{.children = {rule, {Row{.children = std::move(texts), .spacing = 0}}},
                   .alignment = HorizontalAlignment::leading,
                   .spacing = 0}};
}

} // namespace vantel
