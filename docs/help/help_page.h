// Turns the documentation's Markdown into the pages of the help collection.
#pragma once

#include <QByteArray>
#include <QString>

// The text of its first heading.
QString titleOf(const QString& markdown);

// A whole page of well-formed XHTML. Links between the Markdown files lead to the pages made of
// them, pictures lie in the directory "pictures", and each heading can be linked to by its text in
// lower case with hyphens for blanks. Empty when the text cannot be converted.
QByteArray helpPage(const QString& markdown);
