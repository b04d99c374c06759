#include "document_generator.h"

int DocumentGenerator::pick(int count)
{
    return static_cast<int>(m_random() % static_cast<unsigned>(count));
}

QByteArray DocumentGenerator::oneOf(std::initializer_list<const char*> texts)
{
    return *(texts.begin() + pick(static_cast<int>(texts.size())));
}

// Begins with a letter, so that it is no number, answer or statistical member.
QByteArray DocumentGenerator::word()
{
    static constexpr char SIGNS[] = "abcXYZ019_-.:/<>()[]%$@";
    QByteArray result = "w";
    for (int i = pick(12); i > 0; --i)
        result += SIGNS[pick(sizeof SIGNS - 1)];
    return result;
}

QByteArray DocumentGenerator::quoted()
{
    const char quote = chance(50) ? '"' : '\'';
    QByteArray result(1, quote);
    for (int i = pick(6); i > 0; --i)
        result += oneOf({"a", " ", "\n", "\t", "#", "@MODE", "\xc3\xa4", "+", "\r\n", "`"});
    return result + quote;
}

QByteArray DocumentGenerator::interval()
{
    return oneOf({"1", "2.5", ".5", ""}) + oneOf({"[sec]", "[MIN]", "[msec]", "[HR]"});
}

QByteArray DocumentGenerator::strayValue()
{
    return oneOf({"5", "007", "yes", "No", ".AV", "LOG_DIGITAL_DESCP", "3[sec]", "'text'", "word"});
}

QByteArray DocumentGenerator::comment()
{
    QByteArray result = QByteArray(pick(3) * 20, ' ') + "#";
    for (int i = pick(6); i > 0; --i)
        result += oneOf({"a", " ", "@MODE", "#", "\t", "\"", "'", "\xe2\x82\xac", "+"});
    return result + lineEnd();
}

QByteArray DocumentGenerator::lineEnd()
{
    return oneOf({"\n", "\n", "\n", "\r\n", "\n\n", " \n"});
}

// A separator between a keyword and its value.
QByteArray DocumentGenerator::between()
{
    return oneOf({" ", "\t", "  ", "\n", " \n ", "\n\n", "\r\n"});
}

QByteArray DocumentGenerator::stringStatement()
{
    const QByteArray keyword =
        oneOf({"@GROUP", "@MODE", "@PROGRAM", "@TEST_ID", "@TEST_TYPE", "@REG_NAME"});
    if (chance(10))
        return keyword + lineEnd();
    return keyword + between() + (chance(70) ? word() : quoted()) + lineEnd();
}

// Keywords that accept only words.
QByteArray DocumentGenerator::wordStatement()
{
    const QByteArray keyword =
        oneOf({"@META_HEADER_FILENAME", "@OUTPUT_PATH", "@ENABLE", "@LOGGING_ACTIVE_LABEL",
               "@START_EVENT", "@STOP_EVENT", "@FTP_EVENT", "@GET_NEW_SCAN_INTERVAL"});
    return keyword + between() + word() + lineEnd();
}

// Keywords that accept any kind of value, or none.
QByteArray DocumentGenerator::forgivingStatement()
{
    const QByteArray keyword =
        oneOf({"@MAX_SCANS", "@FIFO_POST_TRIGGER_SCANS", "@LOG_STATISTICS", "@FIFO_LOG_BUFFER",
               "@SCAN_INTERVAL", "@FIFO_POST_TRIGGER_INTERVAL"});
    if (chance(10))
        return keyword + lineEnd();
    return keyword + between() + (chance(70) ? interval() : strayValue()) + lineEnd();
}

QByteArray DocumentGenerator::statement()
{
    switch (pick(9)) {
        case 0:
            return stringStatement();
        case 1:
            return wordStatement();
        case 2:
            return forgivingStatement();
        case 3:
            return "@RUNNING_AVERAGE" + between() + interval() + " " + word() + lineEnd();
        case 4:
            return oneOf({"@DESCRIPTION", "@FILENAME"}) + between() + quoted() + lineEnd();
        case 5:
            return "@OMBRA_STEADY_STATE" + lineEnd();
        case 6:
            return oneOf({"@UNKNOWN", "@mode", "@SCAN_LISTS"}) + " " + word() + lineEnd();
        case 7:
            return comment();
        default:
            return section();
    }
}

QByteArray DocumentGenerator::sectionRow(int kind)
{
    switch (kind) {
        case 0:
            return word() + (chance(50) ? " " + oneOf({".AV", ".MX", "LOG_DIGITAL_DESCP"}) : "") +
                   " " + word();
        case 1:
            return word() + " " + (chance(50) ? word() : quoted());
        case 2:
            return (chance(50) ? word() : quoted()) + " " + (chance(50) ? word() : quoted());
        default:
            return oneOf({"1", "27", "word"}) + " " + word();
    }
}

QByteArray DocumentGenerator::section()
{
    static constexpr const char* KEYWORDS[] = {"@SCAN_LIST", "@META_DATA", "@SCAN_LIST_AUX_USER",
                                               "@ECM_LIST"};
    const int kind = pick(4);
    QByteArray result = KEYWORDS[kind] + lineEnd();
    for (int i = pick(6); i > 0; --i)
        result += chance(80) ? sectionRow(kind) + lineEnd() : comment();
    return result;
}

QByteArray DocumentGenerator::document()
{
    QByteArray result;
    for (int i = pick(3); i > 0; --i)
        result += comment();
    result += "@SCRIBON" + between() + word() + lineEnd();
    for (int i = pick(15); i > 0; --i)
        result += statement();
    return result;
}
