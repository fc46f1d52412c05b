#include "host/surface/OutputSerial.h"

namespace vantel {

std::string outputSerial(std::string_view description, std::string_view make, std::string_view model,
                         std::string_view name) {
    const std::string beginning = std::string(make) + ' ' + std::string(model) + ' ';
    const std::string end = " (" + std::string(name);
    const auto last = description.rfind(end);
    if (!description.starts_with(beginning) || last == std::string_view::npos || last < beginning.size())
        return {};
    return std::string(description.substr(beginning.size(), last - beginning.size()));
}

} // namespace vantel
