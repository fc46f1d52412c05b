#pragma once

#include "platform/Instant.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vantel::testing {

/// The offsets of a zone between two moments as the C library knows them: the second road to every answer
/// about days, which asks for nothing but "what is the offset at this instant".
class ZoneOffsets {
public:
    /// Sets TZ for the whole process while it looks; the caller restores it. Times are seconds since 1970.
    ZoneOffsets(const std::string& zoneName, std::int64_t from, std::int64_t until);

    /// The moments at which the offset changes.
    std::vector<std::int64_t> transitions() const;

    std::int64_t offsetAt(std::int64_t time) const;

    /// A day begins at the first instant whose civil date is that day's. Today is the day that began last: a
    /// clock that goes back over midnight does not bring yesterday back.
    std::int64_t startOfDay(std::int64_t time) const;

    /// The first beginning of a day after the instant.
    std::int64_t nextMidnight(std::int64_t time) const;

private:
    struct Span {
        std::int64_t begin;
        std::int64_t end;
        std::int64_t offset;
    };

    std::vector<std::int64_t> startsAround(std::int64_t time) const;
    void appendSpansBetween(std::int64_t from, std::int64_t until);

    std::vector<Span> m_spans;
};

} // namespace vantel::testing
