#pragma once

#include <cstddef>
#include <vector>

namespace vantel::card {

/// Divides what is available so that each gets what it wants, the most modest first; those who want more than
/// is left get equal shares of it. Nothing is ever less than zero.
std::vector<int> fairShares(const std::vector<int>& wanted, int available);

/// Divides a rest evenly among some of the lengths, given by their indexes; an odd piece goes to the later
/// ones.
void addEvenly(std::vector<int>& lengths, const std::vector<std::size_t>& growing, int rest);

} // namespace vantel::card
