// What the help says about the editors of the Keywords tab, held against the editors.

#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QtTest>

#include "help_collection.h"
#include "scribon_keywords.h"
#include "window_test.h"

namespace {

constexpr int KEYWORD = 0;
constexpr int VALUE = 1;

QString pageOf(const QString& keyword)
{
    return QStringLiteral("keyword_%1.htm").arg(keyword.mid(1).toLower());
}

// The page that tells of the editor, with the place on it for the dialog's variants; empty for
// none.
QString editorPage(const QWidget* editor)
{
    const QHash<QString, QString> pages{
        {QStringLiteral("QSpinBox"), QStringLiteral("editor_number.htm")},
        {QStringLiteral("QLineEdit"), QStringLiteral("editor_text.htm")},
        {QStringLiteral("QComboBox"), QStringLiteral("editor_yes_no.htm")},
        {QStringLiteral("VariableSelectionDialog"), QStringLiteral("editor_variable.htm")}};
    return editor == nullptr ? QString()
                             : pages.value(QString::fromLatin1(editor->metaObject()->className()));
}

QString dialogVariant(const QWidget* editor)
{
    const auto* const label = editor == nullptr
                                  ? nullptr
                                  : editor->findChild<QLabel*>(QStringLiteral("interval_or_path"));
    return label == nullptr || label->text().isEmpty()
               ? QString()
               : QStringLiteral("(-an?-%1)").arg(label->text().toLower());
}

}  // namespace

class tst_HelpEditors : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void eachKeywordsEditorIsTheOneThatItsPageNames_data();
    void eachKeywordsEditorIsTheOneThatItsPageNames();
    void linesAcceptWhatTheHelpSays_data();
    void linesAcceptWhatTheHelpSays();
    void numbersHaveTheLimitsThatTheHelpSays();

private:
    void loadFullExample();
    QModelIndex valueOf(const QString& keyword);
    int codeAfterTyping(const QString& keyword, const QString& text);

    HelpCollection m_help;
};

void tst_HelpEditors::loadFullExample()
{
    QFile file(qEnvironmentVariable("SCRIBON_EXAMPLES") + QStringLiteral("/scrib_full"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    loadGoodFile(file.readAll());
    QVERIFY(m_help.open());
}

QModelIndex tst_HelpEditors::valueOf(const QString& keyword)
{
    const TreeModel& model = *modelOf(*m_window, DE_TAB1);
    return model.index(columnTexts(model, KEYWORD).indexOf(keyword), VALUE);
}

void tst_HelpEditors::eachKeywordsEditorIsTheOneThatItsPageNames_data()
{
    QTest::addColumn<QString>("keyword");
    for (const ScribonKeyword& keyword : SCRIBON_KEYWORDS) {
        if (keyword.editor != SCAN_LIST_EDITOR && keyword.editor != ECM_LIST_EDITOR)
            QTest::newRow(keyword.spelling) << QString::fromLatin1(keyword.spelling);
    }
}

void tst_HelpEditors::eachKeywordsEditorIsTheOneThatItsPageNames()
{
    QFETCH(QString, keyword);
    loadFullExample();
    const QModelIndex index = valueOf(keyword);
    QVERIFY(index.isValid());
    const QTreeView* const view = viewOf(*m_window, DE_TAB1);
    const std::unique_ptr<QWidget> editor(
        view->itemDelegate()->createEditor(view->viewport(), QStyleOptionViewItem(), index));
    const QStringList named =
        m_help.page(pageOf(keyword))
            .targets.filter(
                QRegularExpression(QStringLiteral("^editor_(number|text|yes_no|variable)\\.htm")));
    if (!editor) {
        QCOMPARE(named, QStringList());
        return;
    }
    QVERIFY(!named.isEmpty());
    QCOMPARE(named.first().section(QLatin1Char('#'), 0, 0), editorPage(editor.get()));
    const QString variant = dialogVariant(editor.get());
    if (!variant.isEmpty())
        QVERIFY2(named.first().contains(QRegularExpression(variant)), qPrintable(named.first()));
}

void tst_HelpEditors::linesAcceptWhatTheHelpSays_data()
{
    QTest::addColumn<QString>("keyword");
    QTest::addColumn<QString>("said");
    QTest::addColumn<QString>("accepted");
    QTest::addColumn<QString>("refused");

    const QString a(62, QLatin1Char('a'));
    QTest::newRow("events have 62 characters at most")
        << QStringLiteral("@STOP_EVENT") << QStringLiteral("digits and _, 62 at most") << a
        << a + QLatin1Char('a');
    QTest::newRow("events have no blanks")
        << QStringLiteral("@STOP_EVENT") << QStringLiteral("accepts letters, digits and _")
        << QStringLiteral("2_Stop") << QStringLiteral("2 Stop");
    const QString b(79, QLatin1Char('b'));
    QTest::newRow("identifiers have 79 characters at most")
        << QStringLiteral("@SCRIBON") << QStringLiteral("digits and _, 79 at most") << b
        << b + QLatin1Char('b');
    for (const char* const unit : {"msec", "sec", "min", "hr", "MSEC", "SEC", "MIN", "HR"}) {
        const QString text = QStringLiteral("2.5[%1]").arg(QLatin1String(unit));
        QTest::newRow(qPrintable(text)) << QStringLiteral("@FIFO_POST_TRIGGER_INTERVAL")
                                        << QStringLiteral("accepts the units msec, sec, min and hr")
                                        << text << QStringLiteral("2.5") + QLatin1String(unit);
    }
    QTest::newRow("units are not spelt in both cases")
        << QStringLiteral("@RUNNING_AVERAGE") << QStringLiteral("accepts the units msec")
        << QStringLiteral("30[sec]") << QStringLiteral("30[Sec]");
    QTest::newRow("descriptions have double quotes")
        << QStringLiteral("@DESCRIPTION") << QStringLiteral("within double or single quotes")
        << QStringLiteral("\"a - b\"") << QStringLiteral("a - b");
    QTest::newRow("descriptions have single quotes")
        << QStringLiteral("@FILENAME") << QStringLiteral("within double or single quotes")
        << QStringLiteral("'a - b'") << QStringLiteral("'a - b");
    QTest::newRow("registered names begin with no digit")
        << QStringLiteral("@REG_NAME")
        << QStringLiteral("a letter or _, then letters, digits and _") << QStringLiteral("_4")
        << QStringLiteral("4_");
}

int tst_HelpEditors::codeAfterTyping(const QString& keyword, const QString& text)
{
    QTreeView* const view = viewOf(*m_window, DE_TAB1);
    const QModelIndex index = valueOf(keyword);
    view->edit(index);
    auto* const line = view->viewport()->findChild<QLineEdit*>();
    if (line == nullptr)
        return DE_NOFIELD;
    line->selectAll();
    QTest::keyClicks(line, text);
    const int code = index.data(Qt::UserRole).toInt();
    delete line;
    return code;
}

void tst_HelpEditors::linesAcceptWhatTheHelpSays()
{
    QFETCH(QString, keyword);
    QFETCH(QString, said);
    QFETCH(QString, accepted);
    QFETCH(QString, refused);
    loadFullExample();
    const QString text = m_help.page(pageOf(keyword)).text;
    QVERIFY2(text.contains(said), qPrintable(text));
    QCOMPARE(codeAfterTyping(keyword, accepted), int(DE_NOERROR));
    QCOMPARE(codeAfterTyping(keyword, refused), int(DE_SYNTAX_ERR));
}

void tst_HelpEditors::numbersHaveTheLimitsThatTheHelpSays()
{
    loadFullExample();
    QTreeView* const view = viewOf(*m_window, DE_TAB1);
    view->edit(valueOf(QStringLiteral("@MAX_SCANS")));
    const auto* const number = view->viewport()->findChild<QSpinBox*>();
    QVERIFY(number != nullptr);
    const QString said =
        QStringLiteral("from %1 to %2").arg(number->minimum()).arg(number->maximum());
    for (const char* const page : {"keyword_max_scans.htm", "editor_number.htm"}) {
        const QString text = m_help.page(QLatin1String(page)).text;
        QVERIFY2(text.contains(said), qPrintable(text));
    }
}

QTEST_MAIN(tst_HelpEditors)
#include "tst_help_editors.moc"
