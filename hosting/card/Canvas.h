#pragma once

#include "hosting/Color.h"
#include "hosting/card/Geometry.h"

#include <string>
#include <string_view>
#include <vector>

namespace vantel::card {

/// What a text is written with. The colour may let the background through.
struct Pen {
    ResolvedColor color;
    bool isBold = false;
};

/// One column of one row. The right half of a wide glyph holds no text.
struct Cell {
    std::string text = " ";
    ResolvedColor foreground;
    ResolvedColor background;
    bool isBold = false;
};

/// A rectangle of cells on an opaque background. Nothing that is drawn can change its size, and nothing
/// reaches beyond the room that a call names.
class Canvas {
public:
    Canvas(Size size, const ResolvedColor& background);

    /// Writes along the first row of `room`, as far as it goes.
    void write(const Rect& room, std::string_view text, const Pen& pen);

    /// Writes one glyph, a column wide, into each cell.
    void fill(const Rect& room, std::string_view glyph, const Pen& pen);

    /// Lays a colour over the background.
    void tint(const Rect& room, const ResolvedColor& color);

    Rect bounds() const;
    const ResolvedColor& background() const { return m_background; }
    const Cell& cell(Point at) const;

private:
    std::size_t index(Point at) const;
    void put(Point at, std::string_view text, int width, const Pen& pen);
    void clear(Point at);

    Size m_size;
    ResolvedColor m_background;
    std::vector<Cell> m_cells;
};

} // namespace vantel::card
