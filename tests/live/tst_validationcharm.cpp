// ValidationCharm: validates line edits at each keystroke, for cells of real models.

#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QRegExpValidator>
#include <QStandardItemModel>
#include <QtTest>
#include <memory>

#include "model_text.h"
#include "validationcharm.h"
#include "validatorformat.h"

namespace {

const auto MESSAGE = QStringLiteral("Invalid event-name");
constexpr int COLUMN = 1;

std::unique_ptr<TreeModel> modelOfThree()
{
    return modelOfRows(EDIT_TAB1, lines({"@SCRIBON | a | FILLER_TXT", "@MODE | m | FILLER_TXT",
                                         "@VALID | v | FILLER_TXT"}));
}

QRegExp expression(const char* pattern)
{
    return QRegExp(QString::fromLatin1(pattern));
}

void typeInto(QLineEdit* lineEdit, const char* text)
{
    QTest::keyClicks(lineEdit, QString::fromLatin1(text));
}

void pasteInto(QLineEdit* lineEdit, const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(lineEdit, Qt::Key_V, Qt::ControlModifier);
}

// A validator that changes the text and never accepts it.
class RewritingValidator : public QValidator {
public:
    State validate(QString& text, int& /*position*/) const override
    {
        text = QStringLiteral("  re\nwritten ") + text;
        return Invalid;
    }
};

}  // namespace

class TestValidationCharm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void setsPropertiesOfTheLineEdit();
    void hasNoParent();
    void activationDoesNotValidate_data();
    void activationDoesNotValidate();
    void textSetByTheProgramIsNotValidated();

    void typedTextIsValidated_data();
    void typedTextIsValidated();
    void validatesAtEachKeystroke();
    void validatesDeletions();
    void validatesWithAFormatOfTheProgram();
    void everyKeystrokeIsAccepted();
    void storesTheLastValidText();

    void pastedLineBreaks_data();
    void pastedLineBreaks();
    void keystrokeAfterAPasteIsValidated();
    void takesTheTextFromTheValidator();

    void changesOnlyTheErrorCode();
    void emitsDataChanged();
    void nextValidationOverwritesTheCode();

    void servesSeveralLineEdits();
    void activatedAgainForAnotherCell();
    void followsItsCell();
    void removedCell();
    void deletedModel();
    void modelOfAnotherKind();
    void deletedCharm();
    void deactivated();
    void deactivatedAndActivatedAnew();
    void senderThatIsNotALineEdit();
    void withoutASender();

private:
    void activate(const char* pattern);
    QModelIndex cell(int row = 0) const { return m_model->index(row, COLUMN); }
    QVariant code(int row = 0) const { return m_model->errorCode(cell(row)); }
    QList<int> codes() const;

    std::unique_ptr<TreeModel> m_model;
    std::unique_ptr<QRegExpValidator> m_validator;
    std::unique_ptr<ValidationCharm> m_charm;
    std::unique_ptr<QLineEdit> m_lineEdit;
};

// Creates cells without error codes, and a line edit with the text of the first one.
void TestValidationCharm::init()
{
    m_model = modelOfThree();
    for (int row = 0; row < 3; ++row)
        QVERIFY(m_model->setErrorCode(cell(row), int{DE_NOERROR}));
    m_charm = std::make_unique<ValidationCharm>();
    m_lineEdit = std::make_unique<QLineEdit>();
}

void TestValidationCharm::cleanup()
{
    m_lineEdit.reset();
    m_charm.reset();
    m_validator.reset();
    m_model.reset();
}

// Activates the charm for the first cell.
void TestValidationCharm::activate(const char* pattern)
{
    m_validator = std::make_unique<QRegExpValidator>(expression(pattern));
    m_charm->activateOn(m_lineEdit.get(), m_validator.get(), MESSAGE, cell());
}

QList<int> TestValidationCharm::codes() const
{
    QList<int> codes;
    for (int row = 0; row < m_model->rowCount(); ++row)
        codes.append(code(row).toInt());
    return codes;
}

// ---- Activation --------------------------------------------------------------------------------

void TestValidationCharm::setsPropertiesOfTheLineEdit()
{
    m_lineEdit->setText(QStringLiteral("before"));
    activate("[a-z]*");
    QCOMPARE(m_lineEdit->property("modelIndex").toModelIndex(), cell());
    QCOMPARE(m_lineEdit->property("errortip"), QVariant(MESSAGE));
    QCOMPARE(m_lineEdit->property("previousText"), QVariant(QStringLiteral("before")));
    QCOMPARE(m_lineEdit->property("validator").value<QValidator*>(), m_validator.get());
    QCOMPARE(m_lineEdit->property("validator").userType(), QMetaType::type("QValidator *"));
    QCOMPARE(m_lineEdit->dynamicPropertyNames(),
             QList<QByteArray>({"modelIndex", "errortip", "previousText", "validator"}));
    QVERIFY(m_charm->dynamicPropertyNames().isEmpty());
}

void TestValidationCharm::hasNoParent()
{
    QVERIFY(m_charm->parent() == nullptr);
    activate("[a-z]*");
    QVERIFY(m_charm->parent() == nullptr);
    QVERIFY(m_lineEdit->validator() == nullptr);
}

void TestValidationCharm::activationDoesNotValidate_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVariant>("code");
    QTest::newRow("a wrong text in a clean cell") << QStringLiteral("1") << QVariant(0);
    QTest::newRow("a wrong text in a wrong cell") << QStringLiteral("1") << QVariant(1);
    QTest::newRow("a wrong text in a cell that appears twice")
        << QStringLiteral("1") << QVariant(2);
    QTest::newRow("a good text in a wrong cell") << QStringLiteral("abc") << QVariant(1);
    QTest::newRow("a good text in a cell that was not judged yet")
        << QStringLiteral("abc") << QVariant();
}

void TestValidationCharm::activationDoesNotValidate()
{
    QFETCH(QString, text);
    QFETCH(QVariant, code);
    m_model->setErrorCode(cell(), code);
    const QSignalSpy spy(m_model.get(), &TreeModel::codesChanged);
    m_lineEdit->setText(text);
    activate("[a-z]{3}");
    QCOMPARE(this->code(), code);
    QCOMPARE(spy.size(), 0);
    QCOMPARE(m_lineEdit->text(), text);
}

void TestValidationCharm::textSetByTheProgramIsNotValidated()
{
    m_model->setErrorCode(cell(), int{DE_DUPLICATE_ERR});
    activate("[a-z]{3}");
    m_lineEdit->setText(QStringLiteral("1"));
    m_lineEdit->setText(QStringLiteral("abc"));
    QCOMPARE(code(), QVariant(int{DE_DUPLICATE_ERR}));
    QCOMPARE(m_lineEdit->property("previousText"), QVariant(QString()));
}

// ---- Typing ------------------------------------------------------------------------------------

void TestValidationCharm::typedTextIsValidated_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("code");
    const auto name = QStringLiteral("[a-z]{3}");
    QTest::newRow("a matching text") << name << QStringLiteral("abc") << 0;
    QTest::newRow("a text that can never match") << name << QStringLiteral("1") << 1;
    QTest::newRow("the beginning of a matching text") << name << QStringLiteral("ab") << 1;
    QTest::newRow("a matching text with more behind it") << name << QStringLiteral("abcd") << 1;
    QTest::newRow("a match with a blank before it") << name << QStringLiteral(" abc") << 1;
    QTest::newRow("a match with a blank behind it") << name << QStringLiteral("abc ") << 1;
    QTest::newRow("blanks that belong to it")
        << QStringLiteral(" [a-z] ") << QStringLiteral(" a ") << 0;
}

void TestValidationCharm::typedTextIsValidated()
{
    QFETCH(QString, pattern);
    QFETCH(QString, text);
    QFETCH(int, code);
    m_model->setErrorCode(cell(), 1 - code);
    activate(pattern.toLatin1().constData());
    QTest::keyClicks(m_lineEdit.get(), text);
    QCOMPARE(this->code(), QVariant(code));
    QCOMPARE(m_lineEdit->text(), text);
    QCOMPARE(codes().mid(1), QList<int>({0, 0}));
}

void TestValidationCharm::validatesAtEachKeystroke()
{
    activate("[a-z]{3}");
    QList<int> seen;
    for (const char key : {'a', 'b', 'c', 'd'}) {
        QTest::keyClick(m_lineEdit.get(), key);
        seen.append(code().toInt());
    }
    QTest::keyClick(m_lineEdit.get(), Qt::Key_Backspace);
    seen.append(code().toInt());
    QCOMPARE(seen, QList<int>({1, 1, 0, 1, 0}));
}

void TestValidationCharm::validatesDeletions()
{
    m_lineEdit->setText(QStringLiteral("abc"));
    activate("[a-z]{3}");
    m_lineEdit->selectAll();
    QTest::keyClick(m_lineEdit.get(), Qt::Key_Delete);
    QCOMPARE(m_lineEdit->text(), QString());
    QCOMPARE(code(), QVariant(1));
    QTest::keyClick(m_lineEdit.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_lineEdit->text(), QStringLiteral("abc"));
    QCOMPARE(code(), QVariant(0));
}

void TestValidationCharm::validatesWithAFormatOfTheProgram()
{
    activate(ValidatorPatterns[VarName_VF]);
    typeInto(m_lineEdit.get(), "eng_speed");
    QCOMPARE(code(), QVariant(0));
    typeInto(m_lineEdit.get(), "!");
    QCOMPARE(code(), QVariant(1));
}

void TestValidationCharm::everyKeystrokeIsAccepted()
{
    activate("[a-z]{3}");
    typeInto(m_lineEdit.get(), "1 !abcdef");
    QCOMPARE(m_lineEdit->text(), QStringLiteral("1 !abcdef"));
    QVERIFY(m_lineEdit->hasAcceptableInput());
}

// Invalid texts do not change it, and the charm never restores it.
void TestValidationCharm::storesTheLastValidText()
{
    m_lineEdit->setText(QStringLiteral("a"));
    activate("[a-z]{2,3}");
    QStringList seen;
    for (const char key : {'b', 'c', 'd'}) {
        QTest::keyClick(m_lineEdit.get(), key);
        seen.append(m_lineEdit->property("previousText").toString());
    }
    QCOMPARE(seen, lines({"ab", "abc", "abc"}));
    QCOMPARE(m_lineEdit->text(), QStringLiteral("abcd"));
    QCOMPARE(m_lineEdit->property("errortip"), QVariant(MESSAGE));
}

// ---- Line breaks -------------------------------------------------------------------------------

void TestValidationCharm::pastedLineBreaks_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("code");
    const auto add = [](const char* row, const char* pasted, const char* text, int code) {
        QTest::newRow(row) << QString::fromLatin1(pasted) << QString::fromLatin1(text) << code;
    };
    add("one in a matching text", "a\nbc", "abc", 1);
    add("one in another text", "12\n3", "123", 1);
    add("several", "a\n\nb\nc", "abc", 1);
    add("one in and blanks around", "  a\nbc \t", "abc", 1);
    add("in the text and around it", "\na\nb\n", "ab", 1);
    add("blanks before and behind one", "a \n b", "a  b", 1);
    add("of two characters, of which the other stays", "a\r\nb", "a\rb", 1);
    add("none, with blanks around that stay", " abc ", " abc ", 1);
    add("around the text alone, where they stay", "\nabc\n", "\nabc\n", 1);
    add("in a text that may have them", "x\ny", "x\ny", 0);
}

void TestValidationCharm::pastedLineBreaks()
{
    QFETCH(QString, pasted);
    QFETCH(QString, text);
    QFETCH(int, code);
    m_model->setErrorCode(cell(), 1 - code);
    activate("[a-z]{3}|x\ny");
    const QSignalSpy spy(m_model.get(), &TreeModel::codesChanged);
    pasteInto(m_lineEdit.get(), pasted);
    QCOMPARE(m_lineEdit->text(), text);
    QCOMPARE(this->code(), QVariant(code));
    QCOMPARE(spy.size(), 1);
}

void TestValidationCharm::keystrokeAfterAPasteIsValidated()
{
    activate("[a-z]{3}");
    pasteInto(m_lineEdit.get(), QStringLiteral("a\nb"));
    QCOMPARE(m_lineEdit->cursorPosition(), 2);
    typeInto(m_lineEdit.get(), "c");
    QCOMPARE(m_lineEdit->text(), QStringLiteral("abc"));
    QCOMPARE(code(), QVariant(0));
}

void TestValidationCharm::takesTheTextFromTheValidator()
{
    RewritingValidator validator;
    m_charm->activateOn(m_lineEdit.get(), &validator, MESSAGE, cell());
    typeInto(m_lineEdit.get(), "x");
    QCOMPARE(m_lineEdit->text(), QStringLiteral("rewritten x"));
    QCOMPARE(code(), QVariant(1));
}

// ---- The cell ----------------------------------------------------------------------------------

void TestValidationCharm::changesOnlyTheErrorCode()
{
    const QStringList rows = rowLines(*m_model);
    const QSignalSpy dataChanged(m_model.get(), &QAbstractItemModel::dataChanged);
    activate("[a-z]{3}");
    typeInto(m_lineEdit.get(), "12");
    QCOMPARE(codes(), QList<int>({1, 0, 0}));
    QCOMPARE(m_model->errorCode(m_model->index(0, 0)), QVariant());
    QCOMPARE(rowLines(*m_model), rows);
    QCOMPARE(dataChanged.size(), 0);
    QVERIFY(!m_model->isModified());
    QVERIFY(!m_model->isDirty());
    QCOMPARE(m_model->getErrorCount(), 0);
}

void TestValidationCharm::emitsDataChanged()
{
    activate("[a-z]{3}");
    const QSignalSpy spy(m_model.get(), &TreeModel::codesChanged);
    typeInto(m_lineEdit.get(), "1");
    QCOMPARE(spy.size(), 1);
    QTest::keyClick(m_lineEdit.get(), Qt::Key_Backspace);
    QCOMPARE(spy.size(), 2);
    m_lineEdit->setText(QStringLiteral("ab"));
    QCOMPARE(spy.size(), 2);
    typeInto(m_lineEdit.get(), "c");
    QCOMPARE(spy.size(), 3);
}

void TestValidationCharm::nextValidationOverwritesTheCode()
{
    activate("[0-9]");
    typeInto(m_lineEdit.get(), "x");
    QCOMPARE(code(1), QVariant(0));
    QCOMPARE(code(), QVariant(1));
    m_model->setDirty();
    m_model->validate_model();
    QCOMPARE(code(), QVariant(0));
}

// ---- Comings and goings ------------------------------------------------------------------------

void TestValidationCharm::servesSeveralLineEdits()
{
    activate("[a-z]");
    QLineEdit other;
    const QRegExpValidator digits(expression("[0-9]"));
    m_charm->activateOn(&other, const_cast<QRegExpValidator*>(&digits), QString(), cell(2));
    typeInto(&other, "x");
    QCOMPARE(codes(), QList<int>({0, 0, 1}));
    typeInto(m_lineEdit.get(), "1");
    QCOMPARE(codes(), QList<int>({1, 0, 1}));
    QTest::keyClick(&other, Qt::Key_Backspace);
    typeInto(&other, "1");
    QCOMPARE(codes(), QList<int>({1, 0, 0}));
    QCOMPARE(m_lineEdit->property("previousText"), QVariant(QString()));
    QCOMPARE(other.property("previousText"), QVariant(QStringLiteral("1")));
}

void TestValidationCharm::activatedAgainForAnotherCell()
{
    activate("[a-z]");
    const QRegExpValidator digits(expression("[0-9]"));
    m_charm->activateOn(m_lineEdit.get(), const_cast<QRegExpValidator*>(&digits), QString(),
                        cell(1));
    typeInto(m_lineEdit.get(), "x");
    QCOMPARE(codes(), QList<int>({0, 1, 0}));
    QCOMPARE(m_lineEdit->property("errortip"), QVariant(QString()));
}

void TestValidationCharm::followsItsCell()
{
    activate("[a-z]");
    QVERIFY(m_model->insertRows(0, 2));
    typeInto(m_lineEdit.get(), "1");
    QCOMPARE(codes(), QList<int>({0, 0, 1, 0, 0}));
    QVERIFY(m_model->removeRows(0, 1));
    QTest::keyClick(m_lineEdit.get(), Qt::Key_Backspace);
    typeInto(m_lineEdit.get(), "a");
    QCOMPARE(codes(), QList<int>({0, 0, 0, 0}));
}

void TestValidationCharm::removedCell()
{
    activate("[a-z]");
    QVERIFY(m_model->removeRows(0, 1));
    const QSignalSpy spy(m_model.get(), &TreeModel::codesChanged);
    typeInto(m_lineEdit.get(), "1");
    QCOMPARE(m_lineEdit->text(), QStringLiteral("1"));
    QCOMPARE(codes(), QList<int>({0, 0}));
    QCOMPARE(spy.size(), 0);
}

void TestValidationCharm::deletedModel()
{
    activate("[a-z]");
    m_model.reset();
    typeInto(m_lineEdit.get(), "1a");
    QCOMPARE(m_lineEdit->text(), QStringLiteral("1a"));
}

void TestValidationCharm::modelOfAnotherKind()
{
    QStandardItemModel other(1, 2);
    QRegExpValidator letters(expression("[a-z]"));
    m_charm->activateOn(m_lineEdit.get(), &letters, MESSAGE, other.index(0, COLUMN));
    typeInto(m_lineEdit.get(), "1");
    QCOMPARE(m_lineEdit->text(), QStringLiteral("1"));
}

void TestValidationCharm::deletedCharm()
{
    activate("[a-z]");
    m_charm.reset();
    typeInto(m_lineEdit.get(), "1");
    QCOMPARE(code(), QVariant(0));
}

void TestValidationCharm::deactivated()
{
    activate("[a-z]");
    QLineEdit other;
    m_charm->activateOn(&other, m_validator.get(), MESSAGE, cell(1));
    m_charm->deactivateOn(m_lineEdit.get());
    for (const char* const name : {"modelIndex", "errortip", "previousText", "validator"})
        QVERIFY2(!m_lineEdit->property(name).isValid(), name);
    typeInto(m_lineEdit.get(), "1");
    pasteInto(m_lineEdit.get(), QStringLiteral("2\n3"));
    QCOMPARE(m_lineEdit->text(), QStringLiteral("12\n3"));
    typeInto(&other, "1");
    QCOMPARE(codes(), QList<int>({0, 1, 0}));
    QVERIFY(!m_lineEdit->property("previousText").isValid());
}

void TestValidationCharm::deactivatedAndActivatedAnew()
{
    activate("[a-z]");
    m_charm->deactivateOn(m_lineEdit.get());
    activate("[a-z]");
    const QSignalSpy spy(m_model.get(), &TreeModel::codesChanged);
    typeInto(m_lineEdit.get(), "1");
    QCOMPARE(code(), QVariant(1));
    QVERIFY2(spy.size() == 1, "once a keystroke");
}

// It has all the properties of a line edit.
void TestValidationCharm::senderThatIsNotALineEdit()
{
    activate("[a-z]");
    QComboBox sender;
    for (const QByteArray& name : m_lineEdit->dynamicPropertyNames())
        sender.setProperty(name.constData(), m_lineEdit->property(name.constData()));
    QVERIFY(connect(&sender, SIGNAL(currentTextChanged(QString)), m_charm.get(),
                    SLOT(textEdited_(QString))));
    const QSignalSpy spy(m_model.get(), &TreeModel::codesChanged);
    sender.addItem(QStringLiteral("1"));
    QCOMPARE(sender.currentText(), QStringLiteral("1"));
    QCOMPARE(code(), QVariant(0));
    QCOMPARE(spy.size(), 0);
}

void TestValidationCharm::withoutASender()
{
    activate("[a-z]");
    QVERIFY(QMetaObject::invokeMethod(m_charm.get(), "textEdited_",
                                      Q_ARG(QString, QStringLiteral("1"))));
    QCOMPARE(code(), QVariant(0));
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, TestValidationCharm)
#include "tst_validationcharm.moc"
