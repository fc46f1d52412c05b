#include "platform/IcuLocale.h"

#include <string_view>

#include <unicode/localebuilder.h>
#include <unicode/ures.h>

namespace vantel {

namespace {

/// The script that a POSIX modifier means; none for any other modifier.
const char* scriptOf(std::string_view modifier) {
    if (modifier == "latin")
        return "Latn";
    if (modifier == "cyrillic")
        return "Cyrl";
    if (modifier == "devanagari")
        return "Deva";
    return nullptr;
}

icu::Locale named(const std::string& name) {
    const std::size_t at = name.find('@');
    icu::Locale locale = icu::Locale::createCanonical(name.substr(0, at).c_str());
    const char* script = at == std::string::npos ? nullptr : scriptOf(std::string_view(name).substr(at + 1));
    if (script == nullptr)
        return locale;
    UErrorCode status = U_ZERO_ERROR;
    return icu::LocaleBuilder().setLocale(locale).setScript(script).build(status);
}

/// The library itself would take the language of the process for one that it does not know.
bool isKnown(const icu::Locale& locale) {
    if (locale.isBogus() || std::string_view(locale.getLanguage()).empty())
        return false;
    UErrorCode status = U_ZERO_ERROR;
    ures_close(ures_open(nullptr, locale.getName(), &status));
    return U_SUCCESS(status) && status != U_USING_DEFAULT_WARNING;
}

} // namespace

icu::Locale icuLocale(const std::string& name) {
    if (name == "C" || name == "POSIX" || name.starts_with("C."))
        return {"en_US_POSIX"};
    const icu::Locale locale = named(name);
    return isKnown(locale) ? locale : icu::Locale("en");
}

} // namespace vantel
