#pragma once

#include <string>

namespace vantel {

/// The locale that dates and times follow: the first of `LC_ALL`, `LC_TIME` and `LANG` that is set and not
/// empty, without its encoding ("de_DE.UTF-8" gives "de_DE"). "C" when none is.
std::string currentFormatLocale();

} // namespace vantel
