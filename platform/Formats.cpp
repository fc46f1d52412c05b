#include "platform/Formats.h"

namespace vantel {

namespace {

struct Mark {
    std::size_t position;
    std::size_t length;
};

Mark nextMark(std::string_view pattern) {
    constexpr std::string_view number = "%lld";
    constexpr std::string_view text = "%s";
    const std::size_t atNumber = pattern.find(number);
    const std::size_t atText = pattern.find(text);
    if (atNumber < atText)
        return {atNumber, number.size()};
    return {atText, text.size()};
}

} // namespace

std::string filled(std::string_view pattern, std::initializer_list<std::string_view> arguments) {
    std::string result;
    for (const std::string_view argument : arguments) {
        const Mark mark = nextMark(pattern);
        if (mark.position == std::string_view::npos)
            break;
        result += pattern.substr(0, mark.position);
        result += argument;
        pattern.remove_prefix(mark.position + mark.length);
    }
    return result += pattern;
}

} // namespace vantel
