#pragma once

namespace vantel::card {

/// Columns and rows of a terminal, from the top left corner.
struct Point {
    int x;
    int y;

    bool operator==(const Point&) const = default;
};

struct Size {
    int width;
    int height;

    bool operator==(const Size&) const = default;
};

struct Rect {
    int x;
    int y;
    int width;
    int height;

    bool operator==(const Rect&) const = default;

    /// The part that begins so many columns further right.
    Rect from(int columns) const { return {x + columns, y, width - columns, height}; }

    /// The part that begins so many rows further down.
    Rect below(int rows) const { return {x, y + rows, width, height - rows}; }
};

/// The whole columns or rows that a length in points fills.
int columnsIn(double points);
int rowsIn(double points);

/// The columns or rows that show a length in points, never none.
int columnsFor(double points);
int rowsFor(double points);

} // namespace vantel::card
