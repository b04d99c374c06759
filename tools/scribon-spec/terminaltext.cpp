#include "terminaltext.h"

#include <QVector>
#include <algorithm>
#include <array>

namespace {

constexpr int STOP_DISTANCE = 8;
constexpr int LEAST_GAP = 2;

struct Escape {
    uint character;
    const char* shown;
};

constexpr std::array<Escape, 4> ESCAPES{
    {{'\n', "\\n"}, {'\r', "\\r"}, {'\t', "\\t"}, {'\\', "\\\\"}}};

struct CharacterRange {
    uint first;
    uint last;
};

// Characters of East Asian scripts, and pictures, which take two columns.
constexpr std::array<CharacterRange, 13> WIDE{{{0x1100, 0x115f},
                                               {0x2e80, 0x303e},
                                               {0x3041, 0x33ff},
                                               {0x3400, 0x4dbf},
                                               {0x4e00, 0xa4cf},
                                               {0xa960, 0xa97f},
                                               {0xac00, 0xd7a3},
                                               {0xf900, 0xfaff},
                                               {0xfe30, 0xfe6f},
                                               {0xff00, 0xff60},
                                               {0xffe0, 0xffe6},
                                               {0x1f300, 0x1faff},
                                               {0x20000, 0x3fffd}}};

bool isInvisible(uint character)
{
    switch (QChar::category(character)) {
        case QChar::Other_Control:
        case QChar::Other_Format:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
            return true;
        default:
            return false;
    }
}

QString escaped(uint character)
{
    for (const Escape& escape : ESCAPES) {
        if (escape.character == character)
            return QString::fromLatin1(escape.shown);
    }
    if (!isInvisible(character))
        return QString::fromUcs4(&character, 1);
    return character < 0x100 ? QStringLiteral("\\x%1").arg(character, 2, 16, QLatin1Char('0'))
                             : QStringLiteral("\\u%1").arg(character, 4, 16, QLatin1Char('0'));
}

int widthOf(uint character)
{
    const QChar::Category category = QChar::category(character);
    if (category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing)
        return 0;
    const bool wide =
        std::any_of(WIDE.begin(), WIDE.end(), [character](const CharacterRange& range) {
            return range.first <= character && character <= range.last;
        });
    return wide ? 2 : 1;
}

bool isControl(QChar c)
{
    return c.category() == QChar::Other_Control || c.category() == QChar::Other_Format;
}

}  // namespace

QString withoutControls(QString text)
{
    for (QChar& c : text)
        c = isControl(c) && c != QLatin1Char('\t') ? QChar(QChar::ReplacementCharacter) : c;
    return text;
}

QString visibleText(const QString& text)
{
    QString visible;
    for (const uint character : text.toUcs4())
        visible += escaped(character);
    return visible;
}

int displayWidth(const QString& text)
{
    int width = 0;
    for (const uint character : text.toUcs4())
        width += widthOf(character);
    return width;
}

QString paddedTo(int width, const QString& text)
{
    const int used = displayWidth(text);
    while (width < used + LEAST_GAP)
        width += STOP_DISTANCE;
    return text + QString(width - used, QLatin1Char(' '));
}
