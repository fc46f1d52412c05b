#include "platform/FormatLocale.h"

#include <cstdlib>
#include <string_view>

namespace vantel {

std::string currentFormatLocale() {
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value == nullptr || *value == '\0')
            continue;
        const std::string_view name(value);
        const std::size_t encoding = name.find('.');
        if (encoding == std::string_view::npos)
            return std::string(name);
        const std::size_t modifier = name.find('@', encoding);
        return std::string(name.substr(0, encoding)) +
               std::string(modifier == std::string_view::npos ? "" : name.substr(modifier));
    }
    return "C";
}

} // namespace vantel
