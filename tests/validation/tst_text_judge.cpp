// TextJudge answers many texts without QRegExpValidator or the lexer. Compares its answers with
// theirs, for random texts near the limits of the patterns.

#include <malloc.h>

#include <QRandomGenerator>
#include <QRegExp>
#include <QtTest>
#include <array>

#include "editor_antlr3.h"
#include "textjudge.h"
#include "validatorformat.h"

namespace {

struct Alphabet {
    const char* name;
    const char* pieces;  // separated by blanks; a blank itself is written as SP
};

// Made of pieces instead of characters, so that interesting sequences are frequent.
constexpr std::array<Alphabet, 9> ALPHABETS{{
    {"words", "a Z _ 0 9 eng speed x1"},
    {"words with suffixes", "a _ 1 [ ] % ( ) - / . * ^ \\ ` { RPM ' = @ : ; < > ? +"},
    {"quoted texts", "' \" a SP . _ 1 [ % ' \" - , ! ' \""},
    {"channels", "$ a @ / : _ 9 $ $ - [ SP"},
    {"parameters", "a @ 1 @12 _ B @x - SP"},
    {"numbers", "0 12 . e E + - [sec] [ ] x SP # @ 1e+ 5."},
    {"members and keywords", ". .AV AV .MN @ @MODE @SCRIBON LOG_DIGITAL_DESCP L LOG # SP yes no x"},
    {"comments", "# a SP @ \t ' \""},
    {"anything",
     "! \" # $ % & ' ( ) * + , - . / 0 : ; < = > ? @ A L [ \\ ] ^ _ ` a { | } ~ SP \t \n \r"},
}};

QString randomText(QRandomGenerator* random, const Alphabet& alphabet, int longest)
{
    const QStringList pieces = QString::fromLatin1(alphabet.pieces).split(QLatin1Char(' '));
    QString text;
    const int count = random->bounded(longest + 1);
    for (int i = 0; i < count; ++i) {
        const QString& piece = pieces.at(random->bounded(pieces.size()));
        text += piece == QLatin1String("SP") ? QStringLiteral(" ") : piece;
    }
    return text;
}

FormatValidators makeValidators()
{
    FormatValidators validators;
    for (size_t i = 0; i < validators.size(); ++i)
        validators[i] =
            std::make_unique<QRegExpValidator>(QRegExp(QString::fromLatin1(ValidatorPatterns[i])));
    return validators;
}

bool patternAccepts(const FormatValidators& validators, int format, QString text)
{
    int position = 0;
    return validators[static_cast<size_t>(format)]->validate(text, position) ==
           QValidator::Acceptable;
}

int lexedType(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    int tokenType = 0;
    return appGrammerTypeToEditorType(bytes.constData(), bytes.size(), &tokenType);
}

}  // namespace

class TestTextJudge : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void agreesWithValidatorsAndLexer_data();
    void agreesWithValidatorsAndLexer();
    void agreesAtTheLengthLimits_data();
    void agreesAtTheLengthLimits();
    void cachedAnswersAreTheSame();
    void longWordIsFast();
    void memoryDoesNotGrowWithTheTexts();

private:
    void compare(const QString& text);

    FormatValidators m_validators = makeValidators();
    TextJudge m_judge;
};

void TestTextJudge::compare(const QString& text)
{
    QVERIFY2(m_judge.classify(text) == lexedType(text), qPrintable(text));
    for (int format = 0; format < VALIDATOR_COUNT; ++format) {
        const bool expected = patternAccepts(m_validators, format, text);
        const bool actual =
            m_judge.accepts(static_cast<VaidatorFormat>(format), text, m_validators);
        QVERIFY2(actual == expected,
                 qPrintable(QStringLiteral("format %1: %2").arg(format).arg(text)));
    }
}

void TestTextJudge::agreesWithValidatorsAndLexer_data()
{
    QTest::addColumn<int>("alphabet");
    QTest::addColumn<int>("longest");
    for (size_t i = 0; i < ALPHABETS.size(); ++i) {
        for (const int longest : {3, 9, 40})
            QTest::addRow("%s up to %d pieces", ALPHABETS[i].name, longest)
                << static_cast<int>(i) << longest;
    }
}

void TestTextJudge::agreesWithValidatorsAndLexer()
{
    QFETCH(int, alphabet);
    QFETCH(int, longest);
    constexpr int TEXTS = 600;
    QRandomGenerator random(static_cast<quint32>(alphabet * 100 + longest));
    for (int i = 0; i < TEXTS; ++i)
        compare(randomText(&random, ALPHABETS[static_cast<size_t>(alphabet)], longest));
}

void TestTextJudge::agreesAtTheLengthLimits_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("repeated");
    QTest::addColumn<QString>("last");
    QTest::newRow("a word") << "a"
                            << "b"
                            << "";
    QTest::newRow("a word behind a digit") << "1"
                                           << "b"
                                           << "";
    QTest::newRow("a variable with a suffix") << "a"
                                              << "%"
                                              << "";
    QTest::newRow("a variable with units") << "a["
                                           << "r"
                                           << "]";
    QTest::newRow("a text in single quotes") << "'"
                                             << "x "
                                             << "'";
    QTest::newRow("a text in double quotes with a suffix") << "\"x"
                                                           << "%"
                                                           << "\"";
    QTest::newRow("a channel of dollar signs") << ""
                                               << "$"
                                               << "";
    QTest::newRow("a parameter of instances") << "a"
                                              << "b@1"
                                              << "";
    QTest::newRow("digits") << ""
                            << "7"
                            << "";
    QTest::newRow("a comment") << "#"
                               << "c"
                               << "";
}

void TestTextJudge::agreesAtTheLengthLimits()
{
    QFETCH(QString, first);
    QFETCH(QString, repeated);
    QFETCH(QString, last);
    for (int count = 0; count <= 82; ++count)
        compare(first + repeated.repeated(count) + last);
}

void TestTextJudge::cachedAnswersAreTheSame()
{
    constexpr int MORE_THAN_ARE_KEPT = 5000;
    for (int pass = 0; pass < 2; ++pass) {
        for (int i = 0; i < MORE_THAN_ARE_KEPT; ++i)
            QVERIFY(m_judge.accepts(Interval_VF, QStringLiteral("%1[sec]").arg(i), m_validators));
    }
}

// The regular expression alone would take seconds, at each timer event of the window.
void TestTextJudge::longWordIsFast()
{
    const QString word(1 << 20, QLatin1Char('w'));
    QVERIFY(m_judge.accepts(VarName_VF, word, m_validators));
    QVERIFY(!m_judge.accepts(Event_Name_VF, word, m_validators));
    QVERIFY(m_judge.accepts(ChannelName_VF, word, m_validators));
    QCOMPARE(m_judge.classify(word), int(TEXT_BLOCK));
}

// While the editor runs, any number of texts is typed and loaded.
void TestTextJudge::memoryDoesNotGrowWithTheTexts()
{
    constexpr int WARM_UP = 10000;
    constexpr int TEXTS = 60000;
    constexpr size_t MAX_GROWTH = size_t{4} << 20;
    size_t before = 0;
    for (int i = 0; i < TEXTS; ++i) {
        if (i == WARM_UP)
            before = mallinfo2().uordblks;
        m_judge.accepts(Interval_VF, QStringLiteral("%1[sec]").arg(i), m_validators);
        m_judge.classify(QStringLiteral("@%1").arg(i));
    }
    const size_t after = mallinfo2().uordblks;
    QVERIFY2(after < before + MAX_GROWTH, qPrintable(QString::number(after - before)));
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, TestTextJudge)
#include "tst_text_judge.moc"
