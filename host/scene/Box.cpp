#include "host/scene/Box.h"

#include <algorithm>

namespace vantel::scene {

QSizeF Box::size(const Proposal& proposal) const {
    const auto known = std::ranges::find(m_measures, proposal, &Measure::proposal);
    if (known != m_measures.end())
        return known->size;
    const QSizeF size = measured(proposal);
    m_measures.push_back({proposal, size});
    return size;
}

} // namespace vantel::scene
