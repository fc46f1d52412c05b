#pragma once

#include <string>

#include <unicode/locid.h>

namespace vantel {

/// The locale of a POSIX ("sr_RS@latin") or BCP 47 ("sr-Latn-RS") name; English for the C locale and for a
/// language without locale data. Private to this room: nobody else links the library.
icu::Locale icuLocale(const std::string& name);

} // namespace vantel
