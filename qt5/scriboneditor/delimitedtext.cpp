#include "delimitedtext.h"

#include <algorithm>

#include "line_breaks.h"

namespace {

constexpr QLatin1Char QUOTE('"');
constexpr QLatin1Char TAB('\t');
constexpr QLatin1Char LINE_FEED('\n');

bool isDropped(QChar c)
{
    const bool control = c.category() == QChar::Other_Control && c != TAB && c != LINE_FEED;
    return control || c == QChar(QChar::ByteOrderMark);
}

QString readable(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(QLatin1Char('\r'), LINE_FEED);
    const auto end = std::remove_if(text.begin(), text.end(), isDropped);
    text.truncate(static_cast<int>(end - text.begin()));
    return text;
}

bool needsQuotes(const QString& field)
{
    return field.contains(QUOTE) || field.contains(TAB) || field.contains(LINE_FEED);
}

class Reader {
public:
    explicit Reader(const QString& text) : m_text(text) {}

    bool atEnd() const { return m_place >= m_text.size(); }

    QStringList line()
    {
        QStringList fields{field()};
        while (skip(TAB))
            fields.append(field());
        skip(LINE_FEED);
        return fields;
    }

private:
    bool isAt(int place, QChar c) const { return place < m_text.size() && m_text.at(place) == c; }

    bool endsField(int place) const
    {
        return place >= m_text.size() || isAt(place, TAB) || isAt(place, LINE_FEED);
    }

    bool skip(QChar c)
    {
        const bool found = isAt(m_place, c);
        m_place += found ? 1 : 0;
        return found;
    }

    // -1 if the field is not in quotes. The search ends at the first odd number of quotes in a row,
    // and a search from there on does not come back, so all of them together are linear.
    int closingQuote() const
    {
        if (!isAt(m_place, QUOTE))
            return -1;
        int place = m_text.indexOf(QUOTE, m_place + 1);
        while (place >= 0 && isAt(place + 1, QUOTE))
            place = m_text.indexOf(QUOTE, place + 2);
        return place >= 0 && endsField(place + 1) ? place : -1;
    }

    QString field()
    {
        const int closing = closingQuote();
        if (closing < 0)
            return plainField();
        const int start = m_place;
        m_place = closing + 1;
        QString inside = m_text.mid(start + 1, closing - start - 1);
        if (!needsQuotes(inside))
            return m_text.mid(start, m_place - start);
        return inside.replace(QLatin1String("\"\""), QLatin1String("\""));
    }

    QString plainField()
    {
        const int start = m_place;
        while (!endsField(m_place))
            ++m_place;
        return m_text.mid(start, m_place - start);
    }

    const QString& m_text;
    int m_place = 0;
};

// A text of a spec file in single quotes, which may go over several lines.
bool isSingleQuoted(const QString& text)
{
    return text.startsWith(QLatin1Char('\'')) && isQuoted(text);
}

QString quoted(QString field)
{
    return QUOTE + field.replace(QUOTE, QLatin1String("\"\"")) + QUOTE;
}

}  // namespace

QVector<QStringList> fieldsOf(const QString& text)
{
    const QString content = readable(text);
    if (isSingleQuoted(content))
        return {{content}};
    QVector<QStringList> lines;
    Reader reader(content);
    while (!reader.atEnd())
        lines.append(reader.line());
    return lines;
}

QString lineOf(const QStringList& fields)
{
    QStringList written;
    for (const QString& field : fields)
        written.append(needsQuotes(field) ? quoted(field) : field);
    return written.join(TAB);
}
