#include "specencoding.h"

#include <QTextCodec>
#include <algorithm>
#include <limits>

namespace {

bool isAscii(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80;
}

bool isValidLocal(const char* bytes, size_t size)
{
    constexpr size_t LARGEST_PIECE = std::numeric_limits<int>::max();
    QTextCodec::ConverterState state;
    for (size_t done = 0; done < size && state.invalidChars == 0;) {
        const size_t piece = std::min(size - done, LARGEST_PIECE);
        QTextCodec::codecForLocale()->toUnicode(bytes + done, static_cast<int>(piece), &state);
        done += piece;
    }
    return state.invalidChars == 0 && state.remainingChars == 0;
}

}  // namespace

SpecEncoding encodingOf(const char* bytes, size_t size)
{
    if (std::all_of(bytes, bytes + size, isAscii))
        return SpecEncoding::Local;
    return isValidLocal(bytes, size) ? SpecEncoding::Local : SpecEncoding::Latin1;
}

QString decoded(SpecEncoding encoding, const char* bytes, int size)
{
    return encoding == SpecEncoding::Latin1 ? QString::fromLatin1(bytes, size)
                                            : QString::fromLocal8Bit(bytes, size);
}

SpecEncoding encodingFor(const QString& text, SpecEncoding wanted)
{
    constexpr ushort LAST_OF_LATIN1 = 0xff;
    const bool latin1 = wanted == SpecEncoding::Latin1 &&
                        std::all_of(text.begin(), text.end(),
                                    [](QChar c) { return c.unicode() <= LAST_OF_LATIN1; });
    return latin1 ? SpecEncoding::Latin1 : SpecEncoding::Local;
}

QByteArray encoded(SpecEncoding encoding, const QString& text)
{
    return encoding == SpecEncoding::Latin1 ? text.toLatin1() : text.toLocal8Bit();
}
