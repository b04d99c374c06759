#include "samples.h"

#include <QFile>
#include <QTest>
#include <algorithm>
#include <array>

#include "loaded_text.h"

Q_DECLARE_METATYPE(Sample)

namespace {

struct Shorthand {
    const char* name;
    const char* line;
};

constexpr std::array<Shorthand, 3> SHORTHANDS{{
    {"made-up @META_DATA",
     "META_DATA_LIST_DECL [ EDITOR_TAB3, EOL(\\n), KYWD_META_DATA(@META_DATA), EOL(\\n), "
     "FILLER_TXT, FILLER_TXT, EOL(\\n) ]"},
    {"made-up @ECM_LIST",
     "ECM_LIST_DECL [ EDITOR_TAB5, KYWD_ECM_LIST(@ECM_LIST), EOL(\\n), DIGITS( ), TEXT_BLK( ), "
     "EOL(\\n) ]"},
    {"made-up @SCAN_LIST_AUX_USER",
     "SCAN_LIST_AUX_USER_DECL [ EDITOR_TAB4, EOL(\\n), "
     "KYWD_SCAN_LIST_AUX_USER(@SCAN_LIST_AUX_USER), EOL(\\n), TEXT_BLK( ), TEXT_BLK( ), EOL(\\n) "
     "]"},
}};

QString expanded(const QString& line)
{
    for (const Shorthand& shorthand : SHORTHANDS) {
        if (line == QLatin1String(shorthand.name))
            return QLatin1String(shorthand.line);
    }
    return line;
}

char unescaped(char letter)
{
    switch (letter) {
        case 'r':
            return '\r';
        case 't':
            return '\t';
        case 'f':
            return '\f';
        case 's':
            return ' ';
        default:
            return letter;
    }
}

// Converts a line of a sample's text to bytes, with its line end.
QByteArray textLine(const QString& line)
{
    const QByteArray raw = line.toLatin1();
    QByteArray result;
    for (int i = 0; i < raw.size(); ++i) {
        if (raw[i] != '\\') {
            result += raw[i];
        } else {
            ++i;
            if (i == raw.size())
                return result;
            result += unescaped(raw[i]);
        }
    }
    return result + '\n';
}

QString marked(char mark, const QString& line)
{
    return QStringLiteral("%1 %2\n").arg(QLatin1Char(mark)).arg(line);
}

}  // namespace

QVector<Sample> readSamples(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(fileName));
    QStringList lines = QString::fromLatin1(file.readAll()).split(QLatin1Char('\n'));
    lines.removeLast();

    QVector<Sample> samples;
    bool inTree = false;
    for (const QString& line : qAsConst(lines)) {
        if (line.startsWith(QLatin1String("=== "))) {
            samples.append({line.mid(4), {}, 0, {}});
            inTree = false;
        } else if (samples.isEmpty()) {
            continue;
        } else if (line.startsWith(QLatin1String("--- "))) {
            samples.last().verdict = line.mid(4).toInt();
            inTree = true;
        } else if (!inTree) {
            samples.last().text += textLine(line);
        } else if (!line.isEmpty()) {
            samples.last().tree += expanded(line);
        }
    }
    return samples;
}

void addSampleRows(const QString& name)
{
    QTest::addColumn<Sample>("sample");
    const QVector<Sample> samples =
        readSamples(QStringLiteral(SCRIBON_SAMPLES_DIR "/%1").arg(name));
    for (const Sample& sample : samples)
        QTest::newRow(qPrintable(sample.title)) << sample;
}

void checkSampleRow()
{
    QFETCH(Sample, sample);
    resetParseState();
    const int verdict = loadText(sample.text);
    const QStringList tree = loadedTree().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    const QString message =
        QStringLiteral("the text\n%1\nhas the tree (- wanted, + got)\n%2")
            .arg(QString::fromLatin1(sample.text), treeDifference(sample.tree, tree));
    QVERIFY2(tree == sample.tree, qPrintable(message));
    QCOMPARE(verdict, sample.verdict);
}

QString treeDifference(const QStringList& expected, const QStringList& actual)
{
    QString result;
    for (int i = 0; i < std::max(expected.size(), actual.size()); ++i) {
        const QString wanted = expected.value(i);
        const QString got = actual.value(i);
        if (wanted == got) {
            result += marked(' ', wanted);
            continue;
        }
        if (i < expected.size())
            result += marked('-', wanted);
        if (i < actual.size())
            result += marked('+', got);
    }
    return result;
}
