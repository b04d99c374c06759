// How the bytes of a spec file stand for characters. Files of older cells are in Latin-1; read as
// the local encoding, each letter beyond ASCII in them would be lost at the next save.
#pragma once

#include <QByteArray>
#include <QString>
#include <cstddef>

enum class SpecEncoding { Local, Latin1 };

// Local when all of the bytes are valid in the local 8-bit encoding. Otherwise Latin-1, in which
// every byte is a character, so that writing gives the same bytes again.
SpecEncoding encodingOf(const char* bytes, size_t size);

QString decoded(SpecEncoding encoding, const char* bytes, int size);

// The wanted encoding if it has all characters of the text, otherwise the local one.
SpecEncoding encodingFor(const QString& text, SpecEncoding wanted);
QByteArray encoded(SpecEncoding encoding, const QString& text);
