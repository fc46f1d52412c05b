#pragma once

#include "platform/Instant.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include <unicode/listformatter.h>
#include <unicode/numberformatter.h>

namespace vantel {

/// Writes how long something still takes, as a locale does. Each unit's form is made when it is first needed
/// and kept, since making it takes thirty times as long as using it. For one thread at a time. Private to
/// this room: nobody else links the library.
class SpanFormat {
public:
    explicit SpanFormat(icu::Locale locale);

    /// The span in whole minutes, or in seconds below one minute, as the largest two units that are not zero.
    icu::UnicodeString text(Seconds left);

private:
    enum class Unit : std::size_t { second, minute, hour };

    struct Part {
        int count;
        Unit unit;
    };

    static std::vector<Part> parts(Seconds left);
    icu::number::LocalizedNumberFormatter newCounter(Unit unit) const;
    icu::UnicodeString counted(const Part& part);
    icu::UnicodeString listed(const std::vector<icu::UnicodeString>& texts);

    icu::Locale m_locale;
    std::array<std::optional<icu::number::LocalizedNumberFormatter>, 3> m_counters;
    std::unique_ptr<icu::ListFormatter> m_list;
};

} // namespace vantel
