#include "host/app/ToolkitWords.h"

#include <utility>

namespace vantel {

ToolkitWords::ToolkitWords(std::string program, std::string platform)
    : m_texts{std::move(program)} {
    if (!platform.empty())
        m_texts.insert(m_texts.end(), {"-platform", std::move(platform)});
    for (std::string& text : m_texts)
        m_words.push_back(text.data());
    m_count = static_cast<int>(m_words.size());
    m_words.push_back(nullptr);
}

} // namespace vantel
