#include "platform/ZoneName.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string_view>
#include <system_error>

#include <cctz/time_zone.h>

namespace vantel {

namespace {

std::string nameFromVariable(std::string_view variable) {
    if (variable.starts_with(':'))
        variable.remove_prefix(1);
    if (variable.empty())
        return "UTC";
    std::string name(variable);
    cctz::time_zone zone;
    if (cctz::load_time_zone(name, &zone))
        return name;
    ::tzset();
    return "libc:localtime";
}

std::string nameFromSystem() {
    std::string setting = "/etc/localtime";
    const std::string_view database = "/zoneinfo/";
    std::error_code error;
    const std::string target = std::filesystem::read_symlink(setting, error).string();
    const std::size_t found = target.rfind(database);
    if (found == std::string::npos)
        return setting;
    return target.substr(found + database.size());
}

} // namespace

std::string currentZoneName() {
    if (const char* variable = std::getenv("TZ"))
        return nameFromVariable(variable);
    return nameFromSystem();
}

} // namespace vantel
