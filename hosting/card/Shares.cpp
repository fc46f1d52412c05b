#include "hosting/card/Shares.h"

#include <algorithm>

namespace vantel::card {

std::vector<int> fairShares(const std::vector<int>& wanted, int available) {
    std::vector<std::size_t> order;
    order.reserve(wanted.size());
    for (std::size_t i = 0; i < wanted.size(); ++i)
        order.push_back(i);
    std::ranges::stable_sort(order, {}, [&](std::size_t i) { return wanted[i]; });

    std::vector<int> shares(wanted.size(), 0);
    int left = static_cast<int>(wanted.size());
    for (const std::size_t i : order) {
        shares[i] = std::clamp(wanted[i], 0, std::max(0, available) / left--);
        available -= shares[i];
    }
    return shares;
}

void addEvenly(std::vector<int>& lengths, const std::vector<std::size_t>& growing, int rest) {
    int left = static_cast<int>(growing.size());
    for (const std::size_t i : growing) {
        const int share = std::max(0, rest) / left--;
        lengths[i] += share;
        rest -= share;
    }
}

} // namespace vantel::card
