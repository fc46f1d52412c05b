#pragma once

#include <QSize>

namespace vantel {

/// The smallest size, not smaller than the given one, that has a whole number of pixels at every scale in
/// quarters, such as 1.25. Compositors stretch pictures of other sizes a little, which blurs their texts.
constexpr QSize inWholePixels(QSize size) {
    const auto rounded = [](int length) { return (length + 3) / 4 * 4; };
    return {rounded(size.width()), rounded(size.height())};
}

} // namespace vantel
