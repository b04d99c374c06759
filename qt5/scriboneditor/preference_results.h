// The preferences: fonts, and the colour of wrong cells.
#pragma once

#include <QColor>
#include <QFont>

struct preference_results {
    QColor syntaxColor;
    QFont editorFont;
    QFont syntaxFont;
    bool syntaxBold = false;
    bool syntaxItalic = false;
    int syntaxFontSize = 0;
    int editorFontSize = 0;
};
