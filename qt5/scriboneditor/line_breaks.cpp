#include "line_breaks.h"

#include <QLineEdit>

bool isQuoted(const QString& text)
{
    if (!text.startsWith(QLatin1Char('"')) && !text.startsWith(QLatin1Char('\'')))
        return false;
    return text.size() > 1 && text.indexOf(text.at(0), 1) == text.size() - 1;
}

QString withoutLineBreaks(QString text)
{
    return text.remove(QLatin1Char('\n')).remove(QLatin1Char('\r'));
}

namespace {

// Keeps the cursor behind the same characters.
void takeOutLineBreaks(QLineEdit* lineEdit)
{
    const QString text = lineEdit->text();
    const QString cleaned = withoutLineBreaks(text);
    if (cleaned == text)
        return;
    const int cursor = withoutLineBreaks(text.left(lineEdit->cursorPosition())).size();
    lineEdit->setText(cleaned);
    lineEdit->setCursorPosition(cursor);
}

}  // namespace

void refuseLineBreaks(QLineEdit* lineEdit)
{
    QObject::connect(lineEdit, &QLineEdit::textEdited, lineEdit,
                     [lineEdit] { takeOutLineBreaks(lineEdit); });
}

void refuseLineBreaksOutsideQuotes(QLineEdit* lineEdit)
{
    QObject::connect(lineEdit, &QLineEdit::textEdited, lineEdit, [lineEdit] {
        if (!isQuoted(lineEdit->text()))
            takeOutLineBreaks(lineEdit);
    });
}
