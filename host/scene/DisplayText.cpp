#include "host/scene/DisplayText.h"

#include <QList>

namespace vantel::scene {

namespace {

constexpr qsizetype longest = 500;
constexpr std::size_t longestBytes = 4 * longest;
constexpr int mostMarks = 4;

bool isBlank(char32_t character) {
    const QChar::Category category = QChar::category(character);
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph;
}

/// Joiners shape letters and emoji and stay; everything else of this category only misleads.
bool isMisleading(char32_t character) {
    constexpr char32_t nonJoiner = 0x200C;
    constexpr char32_t joiner = 0x200D;
    return QChar::category(character) == QChar::Other_Format && character != nonJoiner && character != joiner;
}

bool isMark(char32_t character) {
    const QChar::Category category = QChar::category(character);
    return category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing;
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
    for (const char32_t character : decoded.toUcs4()) {
        marks = isMark(character) ? marks + 1 : 0;
        if (isMisleading(character) || marks > mostMarks)
            continue;
        result += isBlank(character) ? QStringView(u" ") : QStringView(QChar::fromUcs4(character));
    }
    return shortened(result);
}

} // namespace vantel::scene
