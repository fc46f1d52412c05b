#include "hosting/card/CanvasPrinter.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace vantel::card {

namespace {

constexpr std::string_view reset = "\x1B[0m";

/// What a component is on a terminal; one that is no number is none.
int byte(double component) {
    return component > 0 ? static_cast<int>(std::lround(std::min(component, 1.0) * 255)) : 0;
}

std::string components(const ResolvedColor& color) {
    return std::to_string(byte(color.red)) + ";" + std::to_string(byte(color.green)) + ";" +
           std::to_string(byte(color.blue));
}

std::string escapeSequence(const Cell& cell) {
    const std::string weight = cell.isBold ? "1" : "22";
    return "\x1B[" + weight + ";38;2;" + components(cell.foreground) + ";48;2;" +
           components(cell.background) + "m";
}

/// Blanks show no foreground, so a change of it can wait for the next letter.
bool looksLike(const Cell& cell, const Cell& written) {
    const bool isBlank = cell.text == " " || cell.text.empty();
    return cell.background == written.background &&
           (isBlank || (cell.foreground == written.foreground && cell.isBold == written.isBold));
}

std::string coloredLine(const Canvas& canvas, int y) {
    std::string line;
    std::optional<Cell> written;
    for (int x = 0; x < canvas.bounds().width; ++x) {
        const Cell& cell = canvas.cell({x, y});
        if (!written || !looksLike(cell, *written)) {
            line += escapeSequence(cell);
            written = cell;
        }
        line += cell.text;
    }
    return line.append(reset);
}

std::string plainLine(const Canvas& canvas, int y) {
    std::string line;
    for (int x = 0; x < canvas.bounds().width; ++x)
        line += canvas.cell({x, y}).text;
    return line;
}

} // namespace

std::string printed(const Canvas& canvas, TerminalColors colors) {
    std::string result;
    for (int y = 0; y < canvas.bounds().height; ++y)
        result += (colors == TerminalColors::none ? plainLine(canvas, y) : coloredLine(canvas, y)) + "\n";
    return result;
}

} // namespace vantel::card
