#pragma once

#include "host/scene/Box.h"
#include "host/scene/Scene.h"

/// The boxes that hold no others and no text.
namespace vantel::scene {

class SymbolBox final : public Box {
public:
    SymbolBox(SymbolPiece symbol, double size)
        : m_symbol(symbol)
        , m_size(size) {}

    void place(const QRectF& rectangle, Placer& placer) const override;

protected:
    QSizeF measured(const Proposal&) const override { return {m_size, m_size}; }

private:
    SymbolPiece m_symbol;
    double m_size;
};

class RuleBox final : public Box {
public:
    explicit RuleBox(const Rule& rule)
        : m_rule(rule) {}

    void place(const QRectF& rectangle, Placer& placer) const override;

protected:
    QSizeF measured(const Proposal& proposal) const override;

private:
    Rule m_rule;
};

class RectangleBox final : public Box {
public:
    explicit RectangleBox(const RoundedRectangle& shape)
        : m_shape(shape) {}

    void place(const QRectF& rectangle, Placer& placer) const override;

protected:
    QSizeF measured(const Proposal&) const override { return {m_shape.width, m_shape.height}; }

private:
    RoundedRectangle m_shape;
};

class SpacerBox final : public Box {
public:
    explicit SpacerBox(const Spacer& spacer)
        : m_least(spacer.minLength.value_or(0)) {}

    void place(const QRectF&, Placer&) const override {}
    std::optional<double> spacing() const override { return m_least; }

protected:
    QSizeF measured(const Proposal&) const override { return {0, 0}; }

private:
    double m_least;
};

} // namespace vantel::scene
