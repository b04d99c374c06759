// What an edit can do to a cell: whether an editor opens there, and which text a paste stores.
#pragma once

#include <QModelIndex>
#include <QString>

struct ValueKind;

// The kind of the values in the cell's row of the Keywords tab.
const ValueKind& valueKindOf(const QModelIndex& index);

// Whether the delegate has an editor for the cell, of any tab.
bool opensEditor(const QModelIndex& index);

// The text to store for a row that is a comment or free text. A word that is a keyword without its
// "@" becomes that keyword; other text stays as typed. Existing behaviour, kept for compatibility:
// "@mode" becomes "@@MODE", and a comment typed in place of a free text is stored in upper case.
QString freeTextOrKeyword(const QString& value, int editorType);

// What is stored when the text is pasted into the cell; empty if nothing is left of it.
QString pastedText(const QModelIndex& index, const QString& text);

// The same for a new row: for a keyword, and for a value in this column of a tab (EDIT_TAB1 to
// EDIT_TAB5). The kind is that of the row's keyword, and of no meaning on the list tabs.
QString pastedKeyword(const QString& text);
QString pastedValue(int tab, int column, const ValueKind& kind, const QString& text);

// Whether a keyword of this kind has an editor for a value in this column.
bool takesValue(const ValueKind& kind, int column);
