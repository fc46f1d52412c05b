#pragma once

#include <string>
#include <string_view>

namespace vantel::testing {

inline std::string repeated(std::string_view text, std::size_t times) {
    std::string result;
    result.reserve(text.size() * times);
    for (std::size_t i = 0; i < times; ++i)
        result += text;
    return result;
}

} // namespace vantel::testing
