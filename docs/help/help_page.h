// Converts the documentation's Markdown to the pages of the help collection.
#pragma once

#include <QByteArray>
#include <QString>

// The text of its first heading.
QString titleOf(const QString& markdown);

// A whole page of well-formed XHTML. Links between the Markdown files lead to the pages made of
// them, pictures are in the directory "pictures", and the anchor of a heading is its text in lower
// case with hyphens for blanks. Empty if the text cannot be converted.
QByteArray helpPage(const QString& markdown);
