#pragma once

#include "host/scene/Box.h"
#include "hosting/Element.h"

namespace vantel::scene {

/// The room for boxes in a line: along it (absent: as much as they like), and across it.
struct LineRoom {
    Axis axis;
    std::optional<double> along;
    std::optional<double> across;
    double gap;
};

/// An offer in the terms of an axis.
Proposal proposal(Axis axis, std::optional<double> along, std::optional<double> across);

double along(Axis axis, const QSizeF& size);
double across(Axis axis, const QSizeF& size);

/// The length of each box along a line. The least flexible boxes choose first, each from an equal share of
/// what is left, so that a short text keeps its words and the longest is cut; spacers take the rest.
std::vector<double> lengths(const Boxes& boxes, const LineRoom& room);

/// All lengths with the gaps between them.
double totalLength(const std::vector<double>& lengths, double gap);

} // namespace vantel::scene
