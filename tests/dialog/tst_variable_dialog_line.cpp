// The optional line edit of VariableSelectionDialog: what it accepts, and how the cell's mark
// follows while the user types.

#include <QClipboard>
#include <QLabel>
#include <QtTest>

#include "dialog_test.h"
#include "model_text.h"

class TestVariableDialogLine : public DialogTest {
    Q_OBJECT

protected Q_SLOTS:
    void init() override;
    void cleanup() override;

private Q_SLOTS:
    void shownWithItsLabel_data();
    void shownWithItsLabel();
    void accepts_data();
    void accepts();
    void errorMarkFollowsEachKeystroke();
    void everyKeystrokeIsAccepted();
    void textSetByTheProgramIsNotValidated();
    void pastedLineBreaks();
    void fieldWithTheValueHasTheFocus();
    void cellThatWasRemoved();
    void withoutACell();
    void longTextIsValidatedQuickly_data();
    void longTextIsValidatedQuickly();

private:
    QModelIndex cell() const { return m_model->index(0, 1); }
    QVariant code() const { return m_model->errorCode(cell()); }
    void typeOptional(const QString& text)
    {
        dialog().lineEdit()->clear();
        QTest::keyClicks(dialog().lineEdit(), text);
    }

    std::unique_ptr<TreeModel> m_model;
};

void TestVariableDialogLine::init()
{
    DialogTest::init();
    m_model = modelOfRows(EDIT_TAB1, lines({"@SCRIBON | a | FILLER_TXT"}));
    QVERIFY(m_model->setErrorCode(cell(), int{DE_NOERROR}));
}

void TestVariableDialogLine::cleanup()
{
    DialogTest::cleanup();
    m_model.reset();
}

void TestVariableDialogLine::shownWithItsLabel_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<bool>("visible");
    QTest::newRow("none") << "" << false;
    QTest::newRow("a path") << "Path" << true;
    QTest::newRow("a literal") << "Literal" << true;
    QTest::newRow("an interval") << "Interval" << true;
    QTest::newRow("any other") << "Number" << true;
}

void TestVariableDialogLine::shownWithItsLabel()
{
    QFETCH(QString, label);
    QFETCH(bool, visible);
    make(QT_MARVANE_ANY, label);
    show();
    const auto* const shownLabel = dialog().findChild<QLabel*>(QStringLiteral("interval_or_path"));
    QCOMPARE(shownLabel->text(), label);
    QCOMPARE(shownLabel->isVisible(), visible);
    QCOMPARE(dialog().lineEdit()->isVisible(), visible);
    QCOMPARE(dialog().lineEdit()->property("errortip").toString(),
             QStringLiteral("Invalid ") + label);
}

void TestVariableDialogLine::accepts_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("good");
    const auto row = [](const char* label, const char* text, bool good) {
        QTest::newRow(
            qPrintable(QStringLiteral("%1 %2 %3")
                           .arg(QLatin1String(label), QLatin1String(good ? "is" : "is not"),
                                QLatin1String(text))))
            << QString::fromLatin1(label) << QString::fromLatin1(text) << good;
    };
    row("Path", "/data/run_1/file.txt", true);
    row("Path", "/a", true);
    row("Path", "/data/", true);
    row("Path", "/../x", true);
    row("Path", "/", false);
    row("Path", "data/run", false);
    row("Path", "//data", false);
    row("Path", "/data//run", false);
    row("Path", "/a b", false);
    row("Path", "/a-b", false);
    row("Path", "\"/a\"", false);
    row("Literal", "\"text\"", true);
    row("Literal", "\"\"", true);
    row("Literal", "\"a \"b\" c\"", true);
    row("Literal", "text", false);
    row("Literal", "\"text", false);
    row("Literal", "text\"", false);
    row("Literal", "'text'", false);
    row("Literal", "\"text\" ", false);
    for (const char* label : {"Interval", "path", "LITERAL"}) {
        row(label, "10[sec]", true);
        row(label, "10[SEC]", true);
        row(label, "1.5[min]", true);
        row(label, "2[HR]", true);
        row(label, "250[msec]", true);
        row(label, "250[MSEC]", true);
        row(label, "-1[hr]", true);
        row(label, "10[Sec]", false);
        row(label, "10[s]", false);
        row(label, "10", false);
        row(label, "10 [sec]", false);
        row(label, "10[sec", false);
        row(label, "[sec]", false);
        row(label, "1.2.3[sec]", false);
        row(label, "/data", false);
        row(label, "\"text\"", false);
    }
}

void TestVariableDialogLine::accepts()
{
    QFETCH(QString, label);
    QFETCH(QString, text);
    QFETCH(bool, good);
    make(QT_MARVANE_ANY, label, cell());
    show();
    typeOptional(text);
    QCOMPARE(code(), QVariant(good ? int{DE_NOERROR} : int{DE_SYNTAX_ERR}));
    QCOMPARE(dialog().lineEdit()->text(), text);
    QCOMPARE(dialog().optionalText(), text);
}

void TestVariableDialogLine::errorMarkFollowsEachKeystroke()
{
    make(QT_MARVANE_ANY, QStringLiteral("Interval"), cell());
    show();
    QVector<int> codes;
    for (const QChar character : QStringLiteral("5[sec]x")) {
        QTest::keyClicks(dialog().lineEdit(), character);
        codes.append(code().toInt());
    }
    QCOMPARE(codes, (QVector<int>{1, 1, 1, 1, 1, 0, 1}));
    QTest::keyClick(dialog().lineEdit(), Qt::Key_Backspace);
    QCOMPARE(code(), QVariant(int{DE_NOERROR}));
    QCOMPARE(dialog().optionalText(), QStringLiteral("5[sec]"));
}

void TestVariableDialogLine::everyKeystrokeIsAccepted()
{
    make(QT_MARVANE_ANY, QStringLiteral("Path"), cell());
    show();
    typeOptional(QStringLiteral("no path at all"));
    QCOMPARE(dialog().lineEdit()->text(), QStringLiteral("no path at all"));
    QVERIFY(dialog().lineEdit()->validator() == nullptr);
}

void TestVariableDialogLine::textSetByTheProgramIsNotValidated()
{
    make(QT_MARVANE_ANY, QStringLiteral("Path"), cell());
    dialog().lineEdit()->setText(QStringLiteral("no path"));
    show();
    QCOMPARE(dialog().optionalText(), QString());
    QCOMPARE(code(), QVariant(int{DE_NOERROR}));
}

void TestVariableDialogLine::pastedLineBreaks()
{
    make(QT_MARVANE_ANY, QStringLiteral("Path"), cell());
    show();
    QGuiApplication::clipboard()->setText(QStringLiteral("/a\n/b\n"));
    QTest::keyClick(dialog().lineEdit(), Qt::Key_V, Qt::ControlModifier);
    QVERIFY(!dialog().lineEdit()->text().contains(QLatin1Char('\n')));
    QVERIFY(dialog().lineEdit()->text().startsWith(QStringLiteral("/a")));
    QCOMPARE(dialog().optionalText(), dialog().lineEdit()->text());
}

void TestVariableDialogLine::fieldWithTheValueHasTheFocus()
{
    make(QT_MARVANE_ANY, QStringLiteral("Path"), cell());
    dialog().setOptionalText(QStringLiteral("/data"));
    dialog().lineEdit()->setText(QStringLiteral("/data"));
    show();
    QTRY_VERIFY(dialog().lineEdit()->hasFocus());
    QTest::keyClicks(dialog().focusWidget(), QStringLiteral("/new"));
    QCOMPARE(dialog().optionalText(), QStringLiteral("/new"));
}

void TestVariableDialogLine::cellThatWasRemoved()
{
    make(QT_MARVANE_ANY, QStringLiteral("Path"), cell());
    show();
    QVERIFY(m_model->removeRows(0, 1));
    typeOptional(QStringLiteral("no path"));
    QCOMPARE(dialog().optionalText(), QStringLiteral("no path"));
    m_model.reset();
    typeOptional(QStringLiteral("/data"));
    QCOMPARE(dialog().optionalText(), QStringLiteral("/data"));
}

void TestVariableDialogLine::withoutACell()
{
    make(QT_MARVANE_ANY, QStringLiteral("Path"));
    show();
    typeOptional(QStringLiteral("no path"));
    QCOMPARE(dialog().optionalText(), QStringLiteral("no path"));
    QCOMPARE(code(), QVariant(int{DE_NOERROR}));
}

void TestVariableDialogLine::longTextIsValidatedQuickly_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("text");
    QTest::newRow("a path") << "Path" << QLatin1Char('/') + QString(30000, QLatin1Char('a'));
    QTest::newRow("a literal") << "Literal" << QString(30000, QLatin1Char('"'));
    QTest::newRow("an interval") << "Interval" << QString(30000, QLatin1Char('1'));
}

void TestVariableDialogLine::longTextIsValidatedQuickly()
{
    QFETCH(QString, label);
    QFETCH(QString, text);
    make(QT_MARVANE_ANY, label, cell());
    show();
    dialog().lineEdit()->setText(text);
    QTest::keyClick(dialog().lineEdit(), '?');
    QCOMPARE(code(), QVariant(int{DE_SYNTAX_ERR}));
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestVariableDialogLine)
#include "tst_variable_dialog_line.moc"
