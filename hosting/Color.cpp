#include "hosting/Color.h"

#include <array>

namespace vantel {

namespace {

constexpr std::array<std::string_view, 2> looks = {darkAquaName, aquaName};

ResolvedColor fromHex(std::uint32_t value) {
    return {.red = static_cast<double>(value >> 16U) / 255,
            .green = static_cast<double>(value >> 8U & 0xFFU) / 255,
            .blue = static_cast<double>(value & 0xFFU) / 255};
}

ResolvedColor faded(ResolvedColor color, double opacity) {
    color.alpha *= opacity;
    return color;
}

struct Resolving {
    const Appearance& appearance;
    const ResolvedColor& primary;

    ResolvedColor operator()(const DynamicColor& color) const { return resolve(color, appearance); }
    ResolvedColor operator()(const PrimaryColor& color) const { return faded(primary, color.opacity); }
    ResolvedColor operator()(const TokenColor& color) const {
        return faded(std::visit(*this, color.value), color.opacity);
    }
};

} // namespace

ResolvedColor resolve(const DynamicColor& color, const Appearance& appearance) {
    return fromHex(bestMatch(appearance, looks) == darkAquaName ? color.darkHex : color.lightHex);
}

ResolvedColor resolve(const Color& color, const Appearance& appearance, const ResolvedColor& primary) {
    return std::visit(Resolving{appearance, primary}, color);
}

} // namespace vantel
