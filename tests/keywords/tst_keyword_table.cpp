// Compares the program's table of keywords, and the keywords of its grammar, with the golden table.

#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include "golden_keywords.h"
#include "scribon_keywords.h"

Q_DECLARE_METATYPE(const GoldenKeyword*)

namespace {

template <typename Keywords>
QStringList spellings(const Keywords& keywords)
{
    QStringList list;
    for (const auto& keyword : keywords)
        list.append(QString::fromLatin1(keyword.spelling));
    return list;
}

QString spellingOfToken(int token)
{
    const ScribonKeyword* const keyword = scribonKeyword(token);
    return keyword == nullptr ? QString::number(token) : QString::fromLatin1(keyword->spelling);
}

const ScribonKeyword* programRow(const char* spelling)
{
    for (const ScribonKeyword& keyword : SCRIBON_KEYWORDS) {
        if (qstrcmp(keyword.spelling, spelling) == 0)
            return &keyword;
    }
    return nullptr;
}

const char* choiceHelpOf(const ScribonKeyword& keyword)
{
    return keyword.choiceHelp == SAME_AS_HELP ? keyword.help : keyword.choiceHelp;
}

}  // namespace

class tst_KeywordTable : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void programHasTheSameKeywordsInTheSameOrder();
    void programHasTheSameColumns_data();
    void programHasTheSameColumns();
    void programHasTheSameDisplayOrder();
    void grammarHasTheSameKeywords();
};

void tst_KeywordTable::programHasTheSameKeywordsInTheSameOrder()
{
    QCOMPARE(spellings(SCRIBON_KEYWORDS), spellings(GOLDEN_KEYWORDS));
}

void tst_KeywordTable::programHasTheSameColumns_data()
{
    QTest::addColumn<const GoldenKeyword*>("golden");
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS)
        QTest::newRow(keyword.spelling) << &keyword;
}

void tst_KeywordTable::programHasTheSameColumns()
{
    QFETCH(const GoldenKeyword*, golden);
    const ScribonKeyword* const row = programRow(golden->spelling);
    QVERIFY(row != nullptr);
    QCOMPARE(row->token, golden->token);
    QCOMPARE(row->editor, golden->editor);
    QCOMPARE(row->is(REQUIRED), golden->is(MUST_STAY));
    QCOMPARE(row->is(IN_WORD_LIST), golden->is(ON_OFFER));
    QCOMPARE(row->displayName, golden->displayName);
    QCOMPARE(row->help, golden->help);
    QCOMPARE(choiceHelpOf(*row), golden->choiceHelp());
}

void tst_KeywordTable::programHasTheSameDisplayOrder()
{
    QStringList expected;
    for (const char* const spelling : GOLDEN_DISPLAY_ORDER)
        expected.append(QString::fromLatin1(spelling));
    QStringList actual;
    for (const int token : DISPLAY_ORDER)
        actual.append(spellingOfToken(token));
    QCOMPARE(actual, expected);
}

void tst_KeywordTable::grammarHasTheSameKeywords()
{
    QFile grammar(QStringLiteral(SCRIBON_GRAMMAR));
    QVERIFY(grammar.open(QIODevice::ReadOnly));
    const QString text = QString::fromLatin1(grammar.readAll());
    const QRegularExpression rule(QStringLiteral("^(KYWD_\\w+)\\s*:\\s*'(@\\w+)' ;$"),
                                  QRegularExpression::MultilineOption);
    QStringList actual;
    for (auto match = rule.globalMatch(text); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        actual.append(found.captured(1) + QLatin1Char(' ') + found.captured(2));
    }
    QStringList expected;
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS)
        expected.append(QStringLiteral("%1 %2").arg(QString::fromLatin1(keyword.tokenName),
                                                    QString::fromLatin1(keyword.spelling)));
    actual.sort();
    expected.sort();
    QCOMPARE(actual, expected);
}

#include "area_test.h"
AREA_TEST(QTEST_APPLESS_MAIN, tst_KeywordTable)
#include "tst_keyword_table.moc"
