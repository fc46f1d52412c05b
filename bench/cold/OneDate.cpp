#include <iostream>
#include <memory>
#include <string>

#include <unicode/dtptngen.h>
#include <unicode/smpdtfmt.h>

/// The least that a localized date costs: one instant, by fields, in the user's locale.
int main() {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale locale;
    const std::unique_ptr<icu::DateTimePatternGenerator> patterns(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    const icu::SimpleDateFormat format(patterns->getBestPattern(u"MMMEd", status), locale, status);
    icu::UnicodeString text;
    format.format(UDate(1'795'000'000'000), text);
    std::string line;
    text.toUTF8String(line);
    std::cout << line << '\n';
}
