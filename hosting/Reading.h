#pragma once

#include "hosting/Element.h"
#include "platform/Formats.h"

#include <string>
#include <vector>

namespace vantel {

/// The elements directly inside one, in reading order: the children of a row, a column or a stack, the
/// content of a capsule, the label of a link or a button.
std::vector<const Element*> children(const Element& element);

/// What an element says, as one line: its accessibility label where it has one, else its texts and those
/// inside it in reading order. Times left are counted from `now`. The text is data as it stands.
std::string readingText(const Element& element, const Formats& formats, Instant now);

} // namespace vantel
