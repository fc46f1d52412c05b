#include "platform/IcuTables.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include <link.h>
#include <sys/mman.h>
#include <unistd.h>

namespace vantel {

namespace {

/// A segment that is never written holds nothing but what is in its file.
bool isOnlyRead(const ElfW(Phdr) & segment) {
    return segment.p_type == PT_LOAD && (segment.p_flags & PF_W) == 0;
}

void giveBack(std::uintptr_t base, const ElfW(Phdr) & segment) {
    const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    const std::uintptr_t begin = (base + segment.p_vaddr) / page * page;
    const std::uintptr_t end = base + segment.p_vaddr + segment.p_memsz;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the loader tells addresses as numbers.
    ::madvise(reinterpret_cast<void*>(begin), end - begin, MADV_DONTNEED);
}

int giveBackIfTables(dl_phdr_info* library, std::size_t, void*) {
    if (!std::string_view(library->dlpi_name).contains("/libicudata."))
        return 0;
    for (const auto& segment : std::span(library->dlpi_phdr, library->dlpi_phnum))
        if (isOnlyRead(segment))
            giveBack(library->dlpi_addr, segment);
    return 1;
}

} // namespace

void giveBackIcuTables() {
    ::dl_iterate_phdr(giveBackIfTables, nullptr);
}

} // namespace vantel
