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

    /// Where the text goes on, with room for so many characters. Whoever writes there says with `end` how
    /// far.
    char* room(std::size_t most) {
        if (m_text.size() - m_length < most) [[unlikely]]
            grow(most);
        return m_text.data() + m_length;
    }

    void end(const char* written) { m_length = static_cast<std::size_t>(written - m_text.data()); }

    void append(std::string_view text) {
        char* const out = room(text.size());
        end(out + text.copy(out, text.size()));
    }

    void append(char c) {
        char* const out = room(1);
        *out = c;
        end(out + 1);
    }

    /// The text. The buffer is empty afterwards.
    std::string take() {
        m_text.resize(m_length);
        m_length = 0;
        return std::exchange(m_text, {});
    }

private:
    [[gnu::noinline]] void grow(std::size_t most) { m_text.resize(m_length + most + spare); }

    static constexpr std::size_t spare = 4096;

    std::string m_text; ///< what was written, and then the room that is left
    std::size_t m_length = 0;
};

} // namespace vantel
