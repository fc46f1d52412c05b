#pragma once

#include "hosting/Appearance.h"
#include "hosting/WidgetView.h"

#include <string>

namespace vantel {

enum class TerminalColors { none, trueColor };

/// What the reader of a card sees it with.
struct TextCardOptions {
    std::string title; ///< the widget's name, in the user's language
    const Formats& formats;
    Appearance appearance = Appearance::aqua();
    TerminalColors colors = TerminalColors::none;
};

/// A view as a framed card for a terminal, followed by what a click opens and by each link and button, one to
/// a line. Every line ends with a line feed, and every line of the card takes the same number of columns.
///
/// Texts are data and cannot reach the terminal's controls (see VisibleText.h): without colours the answer
/// holds no control character but line feeds; with colours, only the escape sequences that set them, and each
/// line ends without any in effect.
std::string viewText(const WidgetView& view, const TextCardOptions& options);

} // namespace vantel
