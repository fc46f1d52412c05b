#pragma once

#include <compare>
#include <string>

namespace vantel::torture {

/// What a process that runs for years must not gather.
struct ProcessCounts {
    long bytes = 0; ///< in memory
    long descriptors = 0;
    long threads = 0;
    long watches = 0; ///< of files
    long objects = 0; ///< of the toolkit, on the cards

    bool operator==(const ProcessCounts&) const = default;
};

/// Those of this process. Free memory is given back to the system before it is measured.
ProcessCounts countProcess();

std::string described(const ProcessCounts& counts);

} // namespace vantel::torture
