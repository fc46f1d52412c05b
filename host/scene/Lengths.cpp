#include "host/scene/Lengths.h"

#include <algorithm>
#include <numeric>

namespace vantel::scene {

namespace {

double length(const Box& box, const LineRoom& room, std::optional<double> offer) {
    return along(room.axis, box.size(proposal(room.axis, offer, room.across)));
}

double flexibility(const Box& box, const LineRoom& room) {
    return length(box, room, unbounded) - length(box, room, 0);
}

/// Boxes that are not spacers, the least flexible first.
std::vector<std::size_t> choosingOrder(const Boxes& boxes, const LineRoom& room) {
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < boxes.size(); ++i)
        if (!boxes[i]->spacing())
            order.push_back(i);
    std::ranges::stable_sort(order, {}, [&](std::size_t i) { return flexibility(*boxes[i], room); });
    return order;
}

double gaps(std::size_t count, double gap) {
    return count > 1 ? gap * static_cast<double>(count - 1) : 0;
}

void choose(std::vector<double>& result, const Boxes& boxes, const LineRoom& room, double& rest) {
    const std::vector<std::size_t> order = choosingOrder(boxes, room);
    auto waiting = static_cast<double>(order.size());
    for (const std::size_t i : order) {
        result[i] = length(*boxes[i], room, std::max(0.0, rest / waiting));
        rest -= result[i];
        --waiting;
    }
}

void giveToSpacers(std::vector<double>& result, const Boxes& boxes, double rest) {
    const auto count =
        std::ranges::count_if(boxes, [](const BoxPointer& box) { return box->spacing().has_value(); });
    for (std::size_t i = 0; i < boxes.size(); ++i)
        if (boxes[i]->spacing())
            result[i] += std::max(0.0, rest) / static_cast<double>(count);
}

} // namespace

Proposal proposal(Axis axis, std::optional<double> along, std::optional<double> across) {
    return axis == Axis::horizontal ? Proposal{along, across} : Proposal{across, along};
}

double along(Axis axis, const QSizeF& size) {
    return axis == Axis::horizontal ? size.width() : size.height();
}

double across(Axis axis, const QSizeF& size) {
    return axis == Axis::horizontal ? size.height() : size.width();
}

std::vector<double> lengths(const Boxes& boxes, const LineRoom& room) {
    std::vector<double> result;
    for (const BoxPointer& box : boxes)
        result.push_back(box->spacing() ? *box->spacing() : length(*box, room, std::nullopt));
    if (!room.along)
        return result;
    double rest = *room.along - gaps(boxes.size(), room.gap);
    for (const BoxPointer& box : boxes)
        rest -= box->spacing().value_or(0);
    choose(result, boxes, room, rest);
    giveToSpacers(result, boxes, rest);
    return result;
}

double totalLength(const std::vector<double>& lengths, double gap) {
    return std::accumulate(lengths.begin(), lengths.end(), gaps(lengths.size(), gap));
}

} // namespace vantel::scene
