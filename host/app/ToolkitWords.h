#pragma once

#include <string>
#include <vector>

namespace vantel {

/// What the toolkit takes for the command line: the program's name, and what to draw on. Programs that are
/// started from here would inherit it from the environment, and take it for what the user wants of them.
class ToolkitWords {
public:
    /// An empty platform leaves the choice to the toolkit.
    ToolkitWords(std::string program, std::string platform);
    ToolkitWords(const ToolkitWords&) = delete;
    ToolkitWords& operator=(const ToolkitWords&) = delete;
    ~ToolkitWords() = default;

    /// Both live as long as this, which outlives the application object. The toolkit takes from them what it
    /// has understood.
    int& count() { return m_count; }
    char** words() { return m_words.data(); }

private:
    std::vector<std::string> m_texts;
    std::vector<char*> m_words; ///< ends with a null, as any command line
    int m_count;
};

} // namespace vantel
