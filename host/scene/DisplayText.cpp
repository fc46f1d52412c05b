#include "host/scene/DisplayText.h"

namespace vantel::scene {

namespace {

constexpr qsizetype longest = 2000;
constexpr std::size_t longestBytes = 4 * longest;
constexpr int mostMarks = 4;

bool isBlank(QChar character) {
    return character.category() == QChar::Other_Control || character.category() == QChar::Separator_Line ||
           character.category() == QChar::Separator_Paragraph;
}

/// Joiners shape letters and emoji and stay; everything else of this category only misleads.
bool isMisleading(QChar character) {
    constexpr char16_t nonJoiner = 0x200C;
    constexpr char16_t joiner = 0x200D;
    return character.category() == QChar::Other_Format && character != nonJoiner && character != joiner;
}

bool isMark(QChar character) {
    return character.category() == QChar::Mark_NonSpacing || character.category() == QChar::Mark_Enclosing;
}

/// A cut between the halves of a pair would leave half a character.
QString shortened(QString text) {
    if (text.size() <= longest)
        return text;
    text.truncate(text.at(longest).isLowSurrogate() ? longest - 1 : longest);
    return text;
}

} // namespace

QString displayText(std::string_view text) {
    const QString decoded =
        QString::fromUtf8(text.data(), static_cast<qsizetype>(std::min(text.size(), longestBytes)));
    QString result;
    result.reserve(decoded.size());
    int marks = 0;
    for (const QChar character : decoded) {
        marks = isMark(character) ? marks + 1 : 0;
        if (isMisleading(character) || marks > mostMarks)
            continue;
        result += isBlank(character) ? QChar(u' ') : character;
    }
    return shortened(result);
}

} // namespace vantel::scene
