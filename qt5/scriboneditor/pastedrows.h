// Makes the texts of new rows of the fields that a user pastes.
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <QVector>

// Either the texts, by the columns that the user sees, or why all of it is refused, for the status
// bar. An empty text stands for a cell that stays as in an inserted row.
struct PastedRows {
    Q_DECLARE_TR_FUNCTIONS(PastedRows)

public:
    QVector<QStringList> rows;
    QString refusal;
};

// The lines become rows of a tab (EDIT_TAB1 to EDIT_TAB5); lines without text are left out.
PastedRows pastedRows(int tab, const QVector<QStringList>& lines);

// The text of a field that is pasted on its own; null if the lines are not one field alone.
QString onlyField(const QVector<QStringList>& lines);

// A line edit takes no more characters either.
constexpr int MAX_PASTED_LENGTH = 32767;

// Why a text of this length is refused.
QString tooLong(int length);

// The first column that the user sees.
int firstColumnOf(int tab);
