// The seventeen formats, checked by QRegExpValidator.

#include <QRegExpValidator>
#include <QTest>

#include "validatorformat.h"

namespace {

struct Judgement {
    VaidatorFormat format;
    const char* accepted;  // texts, separated by blanks
    const char* refused;
};

// A placeholder that is replaced by n letters.
QString letters(int n)
{
    return {n, QLatin1Char('a')};
}

// clang-format off
constexpr std::array<Judgement, VALIDATOR_COUNT> JUDGEMENTS{{
    {Event_Name_VF,     "a _ 9 start_log 1st EVENT",
                        "a-b a.b @a a[0] ä 'a'"},
    {RegName_VF,        "a _ a9 reg_name _1",
                        "9a a-b a.b $a"},
    {FilePath_VF,       "/a /a/b /a/b/ /. /../a /a_1.txt/ /A.B",
                        "a a/b / // /a//b /a-b /a:b"},
    {Descript_VF,       "\"a\" \"\" 'a' '' \"'\" '\"' \"a\"b\" 'a'b' \"#\"",
                        "a \"a 'a \"a' a\" \"a\"b x'a' #"},
    {Interval_VF,       "1[sec] 12[min] 1.5[hr] .5[msec] 10[MSEC] x1[sec] 1x5[HR] -1[SEC] 1[MIN]",
                        "1 [sec] 1[day] 1[Sec] 1[sec 1.[sec] 1[sec]x 1..5[sec]"},
    {VarName_VF,        "a A a1 a_b a.b a[0] a[rpm] a% a/b a(b) a:b a;b A<B a\\b a*b a+b a,b a?b a@b a=b a^b FILLER_TXT",
                        "1a _a .a %a 'a' a#b a!b a&b a`b a|b a~b a{b} @a"},
    {Integer_VF,        "0 7 007 1234567890123456789012345678901",
                        "12345678901234567890123456789012 -1 +1 1.5 a 1a"},
    {Yesno_VF,          "YES Yes yes NO No no",
                        "yEs nO Y n yess noo maybe"},
    {Comment_VF,        "# #a ## #@a",
                        "a a#"},
    {Default_VF,        "a # @ 'a' 12345678901234567890123456789012",
                        "123456789012345678901234567890123"},
    {Scribonid_VF,      "a 1 _ cell_4",
                        "a-b a.b <a> a[0]"},
    {StatMem_VF,        ".AV .MN .MX .RN .SD .C0 .IV .FV .DL .E0 .CI .I0 .I5 .I9 .ME .MD .RM .ST .EN "
                        ".TN .TX .C1 .IN .IT .RS .CV .E1 .RA .NM .SE .RC .QF .NR "
                        "LOG_DIGITAL_DESCP FILLER_TXT",
                        ".av AV .AVG .XX .A LOG_DIGITAL_DESC FILLER"},
    {ChannelName_VF,    "a $ $a a1 a@1 a/b a:b A_B $$ N_ENG",
                        "1a _a @a a-b a.b a[0] a%"},
    {ParameterName_VF,  "a A a1 a_b a@ a@1 a@12 ab@1c PAM_KEY@3",
                        "1a _a @1 a@1@2 a-b a.b a@1_"},
    {ECMFilepath_VF,    "/a:b:1 /a/b:c:12 :b:1 ::1 /:b:0 /specs/asam3_specs.engine:ECM0:0 /a-b:_:1 /a:b-c:1 /a:b[c]:1 /a:b@c:1",
                        "/a /a:b /a:b: /a:b:123 a:b:1 /a:b:x /a(b):c:1 /a:b.c:1 /a:b/c:1 /a:b#c:1"},
    {VarName_dblq_VF,   "\"a\" \"\" \"1\" \"a.b\" \"a%\" \"it's\" \"_\" \"-\" \"a[0]\"",
                        "a 'a' \"a \"#\" \"a#b\" \"a!b\" \"a\"b\""},
    {VarName_sq_VF,     "'a' '' '1' 'a.b' 'a%' '_' '-' 'a[0]'",
                        "a \"a\" 'a '#' 'a#b' 'a!b' 'a'b'"},
}};
// clang-format on

}  // namespace

class tst_ValidatorFormats : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void formatsAreInTheOrderOfTheirNumbers();
    void patternOfStatisticalMembers();
    void texts_data();
    void texts();
    void textsWithBlanks_data();
    void textsWithBlanks();
    void lengths_data();
    void lengths();
    void emptyTextIsNeverAccepted();

private:
    bool accepts(VaidatorFormat format, QString text) const;

    FormatValidators m_validators;
};

Q_DECLARE_METATYPE(VaidatorFormat)

void tst_ValidatorFormats::initTestCase()
{
    for (size_t i = 0; i < VALIDATOR_COUNT; ++i) {
        const QRegExp pattern(QString::fromLatin1(ValidatorPatterns[i]));
        QVERIFY2(pattern.isValid(), ValidatorPatterns[i]);
        m_validators[i] = std::make_unique<QRegExpValidator>(pattern);
    }
}

bool tst_ValidatorFormats::accepts(VaidatorFormat format, QString text) const
{
    int position = 0;
    return m_validators[format]->validate(text, position) == QValidator::Acceptable;
}

void tst_ValidatorFormats::formatsAreInTheOrderOfTheirNumbers()
{
    QCOMPARE(int(VALIDATOR_COUNT), 17);
    for (size_t i = 0; i < JUDGEMENTS.size(); ++i)
        QCOMPARE(size_t(JUDGEMENTS[i].format), i);
}

// The pattern is made from the table of members; this is the whole text that it must come to.
void tst_ValidatorFormats::patternOfStatisticalMembers()
{
    QCOMPARE(ValidatorPatterns[StatMem_VF],
             R"x(^((\.AV)|(\.MN)|(\.MX)|(\.RN)|(\.SD)|(\.C0)|(\.IV)|(\.FV)|(\.DL)|(\.E0)|(\.CI))x"
             R"x(|(\.I0)|(\.I5)|(\.I9)|(\.ME)|(\.MD)|(\.RM)|(\.ST)|(\.EN)|(\.TN)|(\.TX)|(\.C1))x"
             R"x(|(\.IN)|(\.IT)|(\.RS)|(\.CV)|(\.E1)|(\.RA)|(\.NM)|(\.SE)|(\.RC)|(\.QF)|(\.NR)))x"
             R"x(|(LOG_DIGITAL_DESCP)|(FILLER_TXT))x");
}

void tst_ValidatorFormats::texts_data()
{
    QTest::addColumn<VaidatorFormat>("format");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("accepted");

    const auto add = [](VaidatorFormat format, const char* texts, bool accepted) {
        for (const QString& text : QString::fromUtf8(texts).split(QLatin1Char(' '))) {
            const QString title =
                QStringLiteral("%1 %2 %3")
                    .arg(format)
                    .arg(accepted ? QStringLiteral("accepts") : QStringLiteral("refuses"), text);
            QTest::newRow(title.toUtf8().constData()) << format << text << accepted;
        }
    };
    for (const Judgement& judgement : JUDGEMENTS) {
        add(judgement.format, judgement.accepted, true);
        add(judgement.format, judgement.refused, false);
    }
}

void tst_ValidatorFormats::texts()
{
    QFETCH(VaidatorFormat, format);
    QFETCH(QString, text);
    QFETCH(bool, accepted);
    QCOMPARE(accepts(format, text), accepted);
}

void tst_ValidatorFormats::textsWithBlanks_data()
{
    QTest::addColumn<VaidatorFormat>("format");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("an event of two words") << Event_Name_VF << "a b" << false;
    QTest::newRow("a description of two words") << Descript_VF << "\"a b\"" << true;
    QTest::newRow("a description of two lines") << Descript_VF << "\"a\nb\"" << true;
    QTest::newRow("a variable of two words") << VarName_VF << "a b" << false;
    QTest::newRow("a comment of two words") << Comment_VF << "# a b" << true;
    QTest::newRow("a blank as any text") << Default_VF << " " << true;
    QTest::newRow("two words in double quotes") << VarName_dblq_VF << "\"a b\"" << true;
    QTest::newRow("two words in single quotes") << VarName_sq_VF << "'a b'" << true;
    QTest::newRow("a tab in double quotes") << VarName_dblq_VF << "\"a\tb\"" << false;
    QTest::newRow("a keyword with a blank before it") << StatMem_VF << " .AV" << false;
    QTest::newRow("an interval with a blank for its point") << Interval_VF << "1 5[sec]" << true;
    QTest::newRow("a path with a blank") << FilePath_VF << "/a b" << false;
    QTest::newRow("an ECM path with a blank") << ECMFilepath_VF << "/a b:c:1" << true;
}

void tst_ValidatorFormats::textsWithBlanks()
{
    texts();
}

void tst_ValidatorFormats::lengths_data()
{
    QTest::addColumn<VaidatorFormat>("format");
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("longest");
    QTest::addColumn<QString>("behind");
    QTest::newRow("an event") << Event_Name_VF << "" << 62 << "";
    QTest::newRow("an integer's text is limited elsewhere") << Default_VF << "" << 32 << "";
    QTest::newRow("a comment behind its sign") << Comment_VF << "#" << 79 << "";
    QTest::newRow("a document's name") << Scribonid_VF << "" << 79 << "";
}

void tst_ValidatorFormats::lengths()
{
    QFETCH(VaidatorFormat, format);
    QFETCH(QString, before);
    QFETCH(int, longest);
    QFETCH(QString, behind);
    QVERIFY(accepts(format, before + letters(longest) + behind));
    QVERIFY(!accepts(format, before + letters(longest + 1) + behind));
}

void tst_ValidatorFormats::emptyTextIsNeverAccepted()
{
    for (const Judgement& judgement : JUDGEMENTS)
        QVERIFY2(!accepts(judgement.format, QString()), ValidatorPatterns[judgement.format]);
}

#include "area_test.h"
AREA_TEST(QTEST_GUILESS_MAIN, tst_ValidatorFormats)
#include "tst_validator_formats.moc"
