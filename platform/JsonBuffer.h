#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace vantel {

/// A text that grows at its end. Room is made for many characters at once and then filled without asking
/// again, which a string does for each piece.
class JsonBuffer {
public:
    void reserve(std::size_t length) { m_text.reserve(length + spare); }

    /// `write` gets where to begin, may write up to `most` characters, and gives where it ended.
    template <typename Write>
    void append(std::size_t most, Write write) {
        if (m_text.size() - m_length < most)
            m_text.resize(m_length + most + spare);
        char* const begin = m_text.data() + m_length;
        m_length += static_cast<std::size_t>(write(begin) - begin);
    }

    void append(std::string_view text) {
        append(text.size(), [&](char* out) { return out + text.copy(out, text.size()); });
    }

    void append(char c) {
        append(1, [&](char* out) {
            *out = c;
            return out + 1;
        });
    }

    /// The text. The buffer is empty afterwards.
    std::string take() {
        m_text.resize(m_length);
        m_length = 0;
        return std::exchange(m_text, {});
    }

private:
    static constexpr std::size_t spare = 4096;

    std::string m_text; ///< what was written, and then the room that is left
    std::size_t m_length = 0;
};

} // namespace vantel
