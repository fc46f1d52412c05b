#include "host/scene/ShapedText.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vantel::scene {

namespace {

/// Sums of heights differ in their last digits, and no one sees that much of a point.
constexpr double tolerance = 0.05;

/// Letters do not become narrower quite as they become smaller.
constexpr double shrinking = 0.98;

constexpr int mostLines = 1000;

/// The lines of a wider or higher room that fit this one as well.
bool isBrokenAlike(const TextRoom& room, const TextBlock& block, const TextRoom& asked) {
    const int lines = static_cast<int>(block.lines.size());
    return block.narrowest <= asked.width && asked.width <= room.width && lines <= asked.lines &&
           asked.lines <= room.lines;
}

} // namespace

ShapedText::ShapedText(QString text, const TextStyle& style, const Look& look)
    : m_text(std::move(text))
    , m_style(style)
    , m_look(look)
    , m_font(sceneFont(style, look))
    , m_metrics(lineMetrics(m_font, style.font.size))
    , m_whole{{unbrokenLine(m_text, m_font)}, m_metrics} {}

const TextBlock& ShapedText::block(double width, std::optional<double> height) const {
    if (this->width() <= width)
        return m_whole;
    const TextRoom room{width, lineLimit(height)};
    const auto known = std::ranges::find_if(
        m_current, [&](const Broken& each) { return isBrokenAlike(each.room, each.block, room); });
    if (known != m_current.end())
        return known->block;
    return m_current.emplace_back(brokenEarlierOrNow(room)).block;
}

void ShapedText::endLayout() const {
    m_earlier = std::exchange(m_current, {});
}

ShapedText::Broken ShapedText::brokenEarlierOrNow(const TextRoom& room) const {
    const auto known = std::ranges::find(m_earlier, room, &Broken::room);
    return known == m_earlier.end() ? Broken{room, broken(room)} : *known;
}

int ShapedText::lineLimit(std::optional<double> height) const {
    const int styled = std::clamp(m_style.lineLimit.value_or(mostLines), 1, mostLines);
    if (!height)
        return styled;
    const double fitting = 1 + std::floor((*height + tolerance - m_metrics.height()) / m_metrics.pitch);
    return static_cast<int>(std::clamp(fitting, 1.0, static_cast<double>(styled)));
}

double ShapedText::fraction(double width) const {
    const double least = std::clamp(m_style.minimumScaleFactor, 0.1, 1.0);
    return std::max(least, shrinking * width / this->width());
}

/// What lies far beyond the room need not be shaped, unless it turns out that it does not lie beyond it.
TextBlock ShapedText::broken(const TextRoom& room) const {
    const double size = room.lines == 1 ? fraction(room.width) : 1;
    const SceneFont font = size < 1 ? sceneFont(m_style, m_look, size) : m_font;
    const QString begun = beginning({room.width / size, room.lines});
    TextBlock block = textBlock(begun, font, m_metrics, room);
    const bool isEnough = block.isCut || begun.size() == m_text.size();
    return isEnough ? block : textBlock(m_text, font, m_metrics, room);
}

/// Twice as much as fits if all letters are equally wide.
QString ShapedText::beginning(const TextRoom& room) const {
    constexpr double least = 16;
    const double share = 2 * room.width * room.lines / width();
    return m_text.left(
        static_cast<qsizetype>(least + std::min(share, 1.0) * static_cast<double>(m_text.size())));
}

std::shared_ptr<const ShapedText> ShapedTexts::shaped(const QString& text, const TextStyle& style,
                                                      const Look& look) {
    const auto isSame = [&](const auto& each) { return each->text() == text && each->style() == style; };
    if (const auto known = std::ranges::find_if(m_current, isSame); known != m_current.end())
        return *known;
    if (const auto known = std::ranges::find_if(m_earlier, isSame); known != m_earlier.end())
        return m_current.emplace_back(*known);
    return m_current.emplace_back(std::make_shared<const ShapedText>(text, style, look));
}

void ShapedTexts::endLayout() {
    for (const auto& text : m_current)
        text->endLayout();
    m_earlier = std::exchange(m_current, {});
}

void ShapedTexts::clear() {
    m_earlier.clear();
    m_current.clear();
}

} // namespace vantel::scene
