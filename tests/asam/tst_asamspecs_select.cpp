// asamspecs_select, shown over a window, with asam3_specs files in /specs.

#include <unistd.h>

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMetaMethod>
#include <QProcess>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QtTest>
#include <memory>

#include "asam_files.h"
#include "asamspecs_select.h"
#include "combo_items.h"
#include "file_dialogs.h"
#include "form_walk.h"
#include "places.h"

namespace {

const auto ENGINE = QStringLiteral("/specs/asam3_specs.engine");
const auto DRIVE = QStringLiteral("/specs/hybrid/asam3_specs.drive");
const auto OTHER = QStringLiteral("Other");

}  // namespace

class tst_AsamspecsSelect : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void formOfTheDialog();
    void formOfTheRows();
    void formOfTheBoxes();
    void formOfTheTexts_data();
    void formOfTheTexts();
    void orderOfSignalsAndSlots();
    void storesTheOriginalValues();
    void rangeOfTheExtensionNumber();
    void twoDigitsFitInAnyFont_data();
    void twoDigitsFitInAnyFont();
    void fileComboBoxHasTheFocus();
    void tabVisitsEveryField();
    void fieldsHaveNames();

    void listsFilesBeforeThoseOfSubdirectories();
    void listsOnlyFilesWithTheName();
    void followsNoLinks();
    void findsAFileAmongAThousandDirectories();
    void findsAFileInADeepDirectory();
    void searchesForFilesAtEachShow();
    void listsTheCellsFileOnce_data();
    void listsTheCellsFileOnce();

    void showsTheCellsInstance_data();
    void showsTheCellsInstance();
    void missingFileOfTheCellKeepsTheInstancesOfTheFirstFile();
    void withoutFilesTheInstancesOfTheFormStay();
    void fileNameIsReadInLatin1();
    void instancesAreInTheLocalEncoding();
    void pickedFileOffersItsInstances();
    void pickedFileKeepsTheCellsInstance();
    void invalidFileKeepsTheInstances_data();
    void invalidFileKeepsTheInstances();
    void selectedInstanceIsKept();
    void valuesAreSetBeforeTheDialogIsShown();
    void spontaneousShowKeepsTheSelection();

    void otherOpensTheFileDialog();
    void fileChosenByOtherIsAppended();
    void listedFileChosenByOtherIsAddedAgain();
    void cancelledFileDialogReselectsTheCellsFile();
    void cancelledFileDialogKeepsOtherIfTheCellHasNoFile();
    void otherAsTheOnlyItemOpensTheFileDialog();
    void otherAsTheCellsFileOpensNoEndlessDialogs_data();
    void otherAsTheCellsFileOpensNoEndlessDialogs();

    void okButtonAcceptsTheDialog();
    void cancelButtonRejectsTheDialog();
    void closingTheDialogDoesNotSetCanceled_data();
    void closingTheDialogDoesNotSetCanceled();
    void okResetsCanceled();
    void isShownBelowItsPositionInTheWindow();

private:
    asamspecs_select& dialog() { return *m_dialog; }
    QStringList files() { return itemsOf(m_dialog->fileComboBox()); }
    QStringList instances() { return itemsOf(m_dialog->ecmComboBox()); }
    QString file() { return m_dialog->fileComboBox()->currentText(); }
    QString instance() { return m_dialog->ecmComboBox()->currentText(); }
    template <typename Part>
    Part* part(const char* name)
    {
        return m_dialog->findChild<Part*>(QString::fromLatin1(name));
    }
    void press(const char* button) { part<QPushButton>(button)->click(); }

    // Shows the dialog as the delegate does for a cell with this file and instance.
    void showFor(const QString& fileName, const QString& ecmInstance = QString());

    // Picks an item of the file combo box like the user; the last one if there are several of this
    // text.
    void pick(const QString& item);

    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<FileDialogs> m_fileDialogs;
    std::unique_ptr<asamspecs_select> m_dialog;
};

void tst_AsamspecsSelect::initTestCase()
{
    QVERIFY2(inPrivateNamespace(), "run this through scripts/in-namespace");
}

void tst_AsamspecsSelect::init()
{
    emptyPlaces();
    m_fileDialogs = std::make_unique<FileDialogs>();
    m_window = std::make_unique<QWidget>();
    m_window->setGeometry(100, 60, 500, 400);
    m_window->show();
    m_dialog = std::make_unique<asamspecs_select>(QModelIndex(), m_window.get());
}

void tst_AsamspecsSelect::cleanup()
{
    m_dialog.reset();
    m_window.reset();
    m_fileDialogs.reset();
}

void tst_AsamspecsSelect::showFor(const QString& fileName, const QString& ecmInstance)
{
    dialog().setOrigFileName(fileName);
    dialog().setOrigEcmInstance(ecmInstance);
    dialog().show();
}

void tst_AsamspecsSelect::pick(const QString& item)
{
    dialog().fileComboBox()->setCurrentIndex(files().lastIndexOf(item));
}

// ---- The form ----------------------------------------------------------------------------------

void tst_AsamspecsSelect::formOfTheDialog()
{
    QCOMPARE(dialog().objectName(), QStringLiteral("asamspecs_select"));
    QCOMPARE(dialog().windowTitle(), QStringLiteral("ASAM3 Spec File Selection"));
    QCOMPARE(dialog().windowModality(), Qt::ApplicationModal);
    QCOMPARE(dialog().windowType(), Qt::Drawer);
    QCOMPARE(dialog().size(), QSize(383, 188));
    QCOMPARE(dialog().minimumSize(), QSize(313, 188));
    QCOMPARE(dialog().maximumSize(), QSize(383, QWIDGETSIZE_MAX));
    QVERIFY(!dialog().isSizeGripEnabled());
    QCOMPARE(dialog().canceled, 0);
}

void tst_AsamspecsSelect::formOfTheRows()
{
    const auto* const outer = qobject_cast<QVBoxLayout*>(dialog().layout());
    QVERIFY(outer != nullptr);
    QCOMPARE(outer->objectName(), QStringLiteral("verticalLayout_2"));
    QCOMPARE(outer->contentsMargins(), QMargins(7, 7, 7, 7));
    const QLayout* const inner = outer->itemAt(0)->layout();
    QCOMPARE(inner->objectName(), QStringLiteral("verticalLayout"));
    QStringList rows;
    for (int i = 0; i < inner->count(); ++i)
        rows.append(inner->itemAt(i)->layout()->objectName());
    QCOMPARE(rows, words("horizontalLayout horizontalLayout_3 horizontalLayout_2 "
                         "horizontalLayout_4"));
    QCOMPARE(part<QHBoxLayout>("horizontalLayout")->spacing(), 0);
    QCOMPARE(part<QHBoxLayout>("horizontalLayout_4")->spacing(), 0);
    QCOMPARE(part<QHBoxLayout>("horizontalLayout_4")->itemAt(0)->sizeHint(), QSize(120, 20));
}

void tst_AsamspecsSelect::formOfTheBoxes()
{
    const QComboBox* const specfiles = dialog().fileComboBox();
    QCOMPARE(specfiles, part<QComboBox>("specfiles"));
    QVERIFY(!specfiles->isEditable());
    QCOMPARE(files(), words("asam3_specs.7"));
    QCOMPARE(specfiles->minimumWidth(), 120);
    QCOMPARE(specfiles->maximumWidth(), 240);
    QCOMPARE(specfiles->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(specfiles->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(int(specfiles->sizeAdjustPolicy()), 2);

    const QComboBox* const ecmInstance = dialog().ecmComboBox();
    QCOMPARE(ecmInstance, part<QComboBox>("ecmInstance"));
    QVERIFY(!ecmInstance->isEditable());
    QCOMPARE(instances(), words("0 1 2"));
    QCOMPARE(instance(), QStringLiteral("0"));
    QCOMPARE(ecmInstance->minimumWidth(), 80);
    QCOMPARE(ecmInstance->maximumWidth(), 240);
    QCOMPARE(ecmInstance->sizeAdjustPolicy(), QComboBox::AdjustToContentsOnFirstShow);

    QCOMPARE(dialog().extSpinBoxEdit(), part<QSpinBox>("extensionNumber"));
    QCOMPARE(dialog().extSpinBoxEdit()->maximumWidth(), 40);
    QCOMPARE(part<QLabel>("label")->minimumWidth(), 120);
    QCOMPARE(part<QLabel>("unique_ext_num_lbl")->minimumWidth(), 80);
    QCOMPARE(part<QLabel>("label_2")->minimumWidth(), 80);
}

void tst_AsamspecsSelect::formOfTheTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("toolTip");
    const auto row = [](const char* name, const char* text, const char* toolTip) {
        QTest::newRow(name) << QString::fromLatin1(text) << QString::fromLatin1(toolTip);
    };
    row("label", "Spec File ", "Available asam3_spec files");
    row("specfiles", "", "path to the asam3_specs file.");
    row("unique_ext_num_lbl", "Extension Number",
        "Externsion number unique across all the ECM in the scribon_specs file.");
    row("label_2", "ECM Instance",
        "<html><head/><body><p>&lt;ECM name&gt; : &lt;parameter list index number &gt; </p><p>ECM "
        "Instanace is ECM name and index to parameter list in a asam3_specs file. (e.g., ECM0:0, "
        "ECM1:0, ECM0:0, ECM0:1,..,)<br/><br/></p></body></html>");
    row("Ok_button", "OK", "");
    row("cancel_button", "Cancel", "");
}

void tst_AsamspecsSelect::formOfTheTexts()
{
    const auto* const widget = part<QWidget>(QTest::currentDataTag());
    QVERIFY(widget != nullptr);
    QTEST(widget->property("text").toString(), "text");
    QTEST(widget->toolTip(), "toolTip");
}

void tst_AsamspecsSelect::orderOfSignalsAndSlots()
{
    const QMetaObject& meta = asamspecs_select::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods.append(QString::fromLatin1(meta.method(i).methodSignature()));
    QCOMPARE(methods, words("closeDialog() mapParent() showEvent(QShowEvent*) "
                            "hideEvent(QHideEvent*) fileEditTextChanged(QString) mapDialog() "
                            "ecmIndexChanged(QString) extNumberChanged(QString) cancel_asam() "
                            "accept_asam()"));
}

void tst_AsamspecsSelect::storesTheOriginalValues()
{
    dialog().setOrigExtNumber(QStringLiteral("7"));
    dialog().setOrigFileName(ENGINE);
    dialog().setOrigEcmInstance(QStringLiteral("ECM0:1"));
    QCOMPARE(dialog().OrigExtNumber(), QStringLiteral("7"));
    QCOMPARE(dialog().OrigFileName(), ENGINE);
    QCOMPARE(dialog().OrigEcmInstance(), QStringLiteral("ECM0:1"));
}

void tst_AsamspecsSelect::rangeOfTheExtensionNumber()
{
    dialog().extSpinBoxEdit()->setValue(100);
    QCOMPARE(dialog().extSpinBoxEdit()->value(), 99);
    dialog().extSpinBoxEdit()->setValue(-1);
    QCOMPARE(dialog().extSpinBoxEdit()->value(), 0);
    QVERIFY(QMetaObject::invokeMethod(&dialog(), "extNumberChanged",
                                      Q_ARG(QString, QStringLiteral("7"))));
    QCOMPARE(dialog().extSpinBoxEdit()->value(), 0);
}

// ---- The list of files -------------------------------------------------------------------------

void tst_AsamspecsSelect::twoDigitsFitInAnyFont_data()
{
    QTest::addColumn<int>("points");
    for (const int points : {6, 9, 12, 16, 24, 48})
        QTest::addRow("%d points", points) << points;
}

void tst_AsamspecsSelect::twoDigitsFitInAnyFont()
{
    QFETCH(int, points);
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPointSize(points);
    QApplication::setFont(font);
    m_dialog = std::make_unique<asamspecs_select>(QModelIndex(), m_window.get());
    showFor(QString());
    const auto* const line = dialog().extSpinBoxEdit()->findChild<QLineEdit*>();
    const int text = line->fontMetrics().boundingRect(QStringLiteral("99")).width();
    const int room = line->width();
    QApplication::setFont(before);
    QVERIFY2(text <= room, qPrintable(QStringLiteral("%1 > %2").arg(text).arg(room)));
}

void tst_AsamspecsSelect::fileComboBoxHasTheFocus()
{
    QCOMPARE(dialog().focusProxy(), dialog().fileComboBox());
}

void tst_AsamspecsSelect::tabVisitsEveryField()
{
    const QStringList fields =
        words("specfiles extensionNumber ecmInstance Ok_button cancel_button");
    showFor(ENGINE);
    QTRY_VERIFY(dialog().isActiveWindow());
    dialog().setFocus();
    QCOMPARE(focusedOf(fields), QStringLiteral("specfiles"));
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        const QStringList round = roundFromFocus(key, fields);
        QCOMPARE(visitedBy(key, fields), round);
    }
}

void tst_AsamspecsSelect::fieldsHaveNames()
{
    showFor(ENGINE);
    QCOMPARE(namelessFields(dialog()), QStringList());
    QCOMPARE(labelsWithoutBuddy(dialog()), QStringList());
    QCOMPARE(labelOf(dialog().fileComboBox()).trimmed(), QStringLiteral("Spec File"));
    QCOMPARE(labelOf(dialog().ecmComboBox()), QStringLiteral("ECM Instance"));
    QSpinBox* const number = dialog().extSpinBoxEdit();
    QCOMPARE(accessibleText(number, QAccessible::Name), QStringLiteral("Extension Number"));
    QCOMPARE(roleOf(number), QAccessible::SpinBox);
}

void tst_AsamspecsSelect::listsFilesBeforeThoseOfSubdirectories()
{
    for (const char* const path : {"b/asam3_specs.1", "A/asam3_specs.2", "A/z/asam3_specs.3",
                                   "asam3_specs.b", "asam3_specs.A", "asam3_specs.c"})
        QVERIFY(writeFile(QStringLiteral("/specs/") + QLatin1String(path), asamFile("ECM0")));
    showFor(QString());
    QCOMPARE(files(), words("/specs/asam3_specs.A /specs/asam3_specs.b /specs/asam3_specs.c "
                            "/specs/A/asam3_specs.2 /specs/A/z/asam3_specs.3 "
                            "/specs/b/asam3_specs.1 Other"));
}

void tst_AsamspecsSelect::listsOnlyFilesWithTheName()
{
    for (const char* const name : {"asam3_specs", "asam3_specsx", "xasam3_specs.1", "scrib_asam3",
                                   ".asam3_specs.1", "asam3_specs.", "asam3_specs.a b"})
        QVERIFY(writeFile(QStringLiteral("/specs/") + QLatin1String(name), asamFile("ECM0")));
    QVERIFY(QDir().mkpath(QStringLiteral("/specs/asam3_specs.directory")));
    QVERIFY(makePipe(QStringLiteral("/specs/asam3_specs.pipe")));
    QVERIFY(writeFile(QStringLiteral("/specs/.hidden/asam3_specs.1"), asamFile("ECM0")));
    showFor(QString());
    QCOMPARE(files(), QStringList({QStringLiteral("/specs/asam3_specs."),
                                   QStringLiteral("/specs/asam3_specs.a b"), OTHER}));
}

void tst_AsamspecsSelect::followsNoLinks()
{
    QVERIFY(writeFile(QStringLiteral("/tmp/linked/asam3_specs.far"), asamFile("FAR")));
    QVERIFY(writeFile(ENGINE, asamFile("ECM0")));
    QVERIFY(QFile::link(QStringLiteral("/tmp/linked"), QStringLiteral("/specs/linked")));
    QVERIFY(QFile::link(QStringLiteral("/specs"), QStringLiteral("/specs/circle")));
    QVERIFY(QFile::link(ENGINE, QStringLiteral("/specs/asam3_specs.link")));
    showFor(QString());
    QCOMPARE(files(), QStringList({ENGINE, OTHER}));
}

void tst_AsamspecsSelect::findsAFileAmongAThousandDirectories()
{
    for (int i = 0; i < 1000; ++i)
        QVERIFY(QDir().mkpath(QStringLiteral("/specs/d%1").arg(i)));
    const auto path = QStringLiteral("/specs/d777/asam3_specs.hidden");
    QVERIFY(writeFile(path, asamFile("ECM0")));
    showFor(QString());
    QCOMPARE(files(), QStringList({path, OTHER}));
}

// The path is longer than PATH_MAX.
void tst_AsamspecsSelect::findsAFileInADeepDirectory()
{
    if (inFakeRoot())
        QSKIP("fakechroot names every file by its path; it takes namespaces to go deeper");
    const QString deep = QStringLiteral("/specs") + QStringLiteral("/d").repeated(1000);
    QVERIFY(writeFile(deep + QStringLiteral("/asam3_specs.deep"), asamFile("ECM0")));
    QVERIFY(QDir::setCurrent(deep));
    for (int i = 0; i < 3000; ++i)
        QVERIFY(QDir().mkdir(QStringLiteral("e")) && chdir("e") == 0);
    QVERIFY(QDir::setCurrent(QStringLiteral("/specs")));
    showFor(QString());
    QCOMPARE(files(), QStringList({deep + QStringLiteral("/asam3_specs.deep"), OTHER}));
    QProcess::execute(QStringLiteral("rm"), {QStringLiteral("-rf"), QStringLiteral("/specs/d")});
}

void tst_AsamspecsSelect::searchesForFilesAtEachShow()
{
    QVERIFY(writeFile(ENGINE, asamFile("ECM0")));
    showFor(ENGINE);
    dialog().hide();
    QVERIFY(writeFile(DRIVE, asamFile("INV0")));
    dialog().show();
    QCOMPARE(files(), QStringList({ENGINE, DRIVE, OTHER}));
}

void tst_AsamspecsSelect::listsTheCellsFileOnce_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QStringList>("listed");
    QTest::newRow("no file") << QString() << QStringList({ENGINE, OTHER});
    QTest::newRow("a found file") << ENGINE << QStringList({ENGINE, OTHER});
    for (const char* const name :
         {"/specs/nothing", " ", "/specs//asam3_specs.engine", "a b", "other"})
        QTest::newRow(name) << QString::fromLatin1(name)
                            << QStringList({ENGINE, QString::fromLatin1(name), OTHER});
}

void tst_AsamspecsSelect::listsTheCellsFileOnce()
{
    QFETCH(QString, cell);
    QVERIFY(writeFile(ENGINE, asamFile("ECM0")));
    showFor(cell);
    QTEST(files(), "listed");
    QCOMPARE(file(), cell.isEmpty() ? ENGINE : cell);
    QCOMPARE(m_fileDialogs->seen.size(), 0);
}

// ---- Instances ---------------------------------------------------------------------------------

void tst_AsamspecsSelect::showsTheCellsInstance_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, const char* cell, const char* shown) {
        QTest::newRow(name) << QString::fromLatin1(cell) << QString::fromLatin1(shown);
    };
    row("the first", "ECM0:0", "ECM0:0");
    row("the last", "ECM0:2", "ECM0:2");
    row("an instance that the file does not have", "ECM0:3", "ECM0:0");
    row("an instance in another case", "ecm1:0", "ECM0:0");
    row("none", "", "ECM0:0");
}

void tst_AsamspecsSelect::showsTheCellsInstance()
{
    QFETCH(QString, cell);
    QVERIFY(writeFile(ENGINE, asamFile("ECM0 ECM1 ECM0 ECM0")));
    showFor(ENGINE, cell);
    QCOMPARE(instances(), words("ECM0:0 ECM1:0 ECM0:1 ECM0:2"));
    QTEST(instance(), "shown");
    QCOMPARE(dialog().OrigEcmInstance(), cell);
}

// The first file is current for a moment and sets its instances.
void tst_AsamspecsSelect::missingFileOfTheCellKeepsTheInstancesOfTheFirstFile()
{
    QVERIFY(writeFile(ENGINE, asamFile("ECM0 ECM1")));
    showFor(QStringLiteral("/specs/nothing"), QStringLiteral("ECM1:0"));
    QCOMPARE(file(), QStringLiteral("/specs/nothing"));
    QCOMPARE(instances(), words("ECM0:0 ECM1:0"));
    QCOMPARE(instance(), QStringLiteral("ECM1:0"));
}

void tst_AsamspecsSelect::withoutFilesTheInstancesOfTheFormStay()
{
    showFor(QStringLiteral("/specs/nothing"), QStringLiteral("ECM1:0"));
    QCOMPARE(instances(), words("0 1 2"));
    QCOMPARE(instance(), QStringLiteral("0"));
}

void tst_AsamspecsSelect::fileNameIsReadInLatin1()
{
    const auto name = QStringLiteral(u"/specs/moteur_\u00e9");
    QVERIFY(writeFile(name, asamFile("UTF8")));
    QFile latin(QStringLiteral("/specs/latin"));
    QVERIFY(writeFile(latin.fileName(), asamFile("LATIN1")));
    QCOMPARE(rename("/specs/latin", name.toLatin1().constData()), 0);
    showFor(name);
    QCOMPARE(instances(), words("LATIN1:0"));
}

void tst_AsamspecsSelect::instancesAreInTheLocalEncoding()
{
    const auto name = QStringLiteral(u"\u00e9\u0416");
    QVERIFY(writeFile(ENGINE, asamFile("A") + section(name.toLocal8Bit() + " b c")));
    showFor(ENGINE, name + QStringLiteral(":0"));
    QCOMPARE(instance(), name + QStringLiteral(":0"));
}

void tst_AsamspecsSelect::pickedFileOffersItsInstances()
{
    QVERIFY(writeFile(ENGINE, asamFile("ECM0 ECM0")));
    QVERIFY(writeFile(DRIVE, asamFile("INV0 BMS0 BMS0")));
    showFor(ENGINE, QStringLiteral("ECM0:1"));
    pick(DRIVE);
    QCOMPARE(instances(), words("INV0:0 BMS0:0 BMS0:1"));
    QCOMPARE(instance(), QStringLiteral("INV0:0"));
    pick(ENGINE);
    QCOMPARE(instances(), words("ECM0:0 ECM0:1"));
}

void tst_AsamspecsSelect::pickedFileKeepsTheCellsInstance()
{
    QVERIFY(writeFile(ENGINE, asamFile("ECM0 ECM1")));
    QVERIFY(writeFile(DRIVE, asamFile("INV0 ECM1")));
    showFor(ENGINE, QStringLiteral("ECM1:0"));
    dialog().ecmComboBox()->setCurrentIndex(0);
    pick(DRIVE);
    QCOMPARE(instance(), QStringLiteral("ECM1:0"));
}

void tst_AsamspecsSelect::invalidFileKeepsTheInstances_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("no @REG_NAME") << asamFile("A").mid(1);
    QTest::newRow("a long preamble")
        << "@REG_NAME\n2\n3\n" + QByteArray("x\n").repeated(6) + "$\n" + section("A b c");
    QTest::newRow("no sections") << opening();
    QTest::newRow("a fifth head of two tokens") << asamFile("A B C D") + section("E e");
    QTest::newRow("nothing") << QByteArray();
}

void tst_AsamspecsSelect::invalidFileKeepsTheInstances()
{
    QFETCH(QByteArray, text);
    QVERIFY(writeFile(ENGINE, asamFile("ECM0 ECM1")));
    QVERIFY(writeFile(DRIVE, text));
    showFor(ENGINE);
    dialog().ecmComboBox()->setCurrentIndex(1);
    pick(DRIVE);
    QCOMPARE(file(), DRIVE);
    QCOMPARE(instances(), words("ECM0:0 ECM1:0"));
    QCOMPARE(instance(), QStringLiteral("ECM1:0"));
}

void tst_AsamspecsSelect::selectedInstanceIsKept()
{
    QVERIFY(writeFile(ENGINE, asamFile("ECM0 ECM1")));
    showFor(ENGINE, QStringLiteral("ECM0:0"));
    dialog().ecmComboBox()->setCurrentIndex(1);
    QCOMPARE(instance(), QStringLiteral("ECM1:0"));
}

// The delegate sets the combo boxes before the dialog is shown: then they have the items of the
// form.
void tst_AsamspecsSelect::valuesAreSetBeforeTheDialogIsShown()
{
    QVERIFY(writeFile(ENGINE, asamFile("ECM0 ECM1")));
    dialog().fileComboBox()->setCurrentIndex(-1);
    dialog().fileComboBox()->setEditText(ENGINE);
    dialog().ecmComboBox()->setEditText(QStringLiteral("ECM1"));
    dialog().extSpinBoxEdit()->setValue(7);
    showFor(ENGINE, QStringLiteral("ECM1:0"));
    QCOMPARE(file(), ENGINE);
    QCOMPARE(instance(), QStringLiteral("ECM1:0"));
    QCOMPARE(dialog().extSpinBoxEdit()->value(), 7);
}

// The window system hides and shows the dialog, which sends spontaneous events.
void tst_AsamspecsSelect::spontaneousShowKeepsTheSelection()
{
    QVERIFY(writeFile(ENGINE, asamFile("ECM0 ECM1")));
    showFor(ENGINE, QStringLiteral("ECM0:0"));
    dialog().ecmComboBox()->setCurrentIndex(1);
    const QRect place = dialog().geometry();
    QShowEvent event;
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&dialog(), &event);
    QCOMPARE(instance(), QStringLiteral("ECM1:0"));
    QCOMPARE(dialog().geometry(), place);
}

// ---- Another file ------------------------------------------------------------------------------

void tst_AsamspecsSelect::otherOpensTheFileDialog()
{
    QVERIFY(writeFile(ENGINE, asamFile("ECM0")));
    showFor(ENGINE);
    pick(OTHER);
    QCOMPARE(m_fileDialogs->seen.size(), 1);
    const FileQuestion question = m_fileDialogs->seen.constFirst();
    QCOMPARE(question.title, QStringLiteral("Open file"));
    QCOMPARE(question.directory, QStringLiteral("/specs"));
    QCOMPARE(question.filters, words("asam3_specs* *"));
    QCOMPARE(question.acceptMode, QFileDialog::AcceptOpen);
    QCOMPARE(question.parent, m_dialog.get());
}

void tst_AsamspecsSelect::fileChosenByOtherIsAppended()
{
    const auto elsewhere = QStringLiteral("/tmp/elsewhere");
    QVERIFY(writeFile(ENGINE, asamFile("ECM0")));
    QVERIFY(writeFile(elsewhere, asamFile("A B A A")));
    showFor(ENGINE, QStringLiteral("A:2"));
    m_fileDialogs->choose(elsewhere);
    pick(OTHER);
    QCOMPARE(files(), QStringList({ENGINE, OTHER, elsewhere}));
    QCOMPARE(file(), elsewhere);
    QCOMPARE(instances(), words("A:0 B:0 A:1 A:2"));
    QCOMPARE(instance(), QStringLiteral("A:2"));
    QCOMPARE(m_fileDialogs->seen.size(), 1);
}

void tst_AsamspecsSelect::listedFileChosenByOtherIsAddedAgain()
{
    QVERIFY(writeFile(ENGINE, asamFile("ECM0")));
    QVERIFY(writeFile(DRIVE, asamFile("INV0")));
    showFor(ENGINE);
    m_fileDialogs->choose(DRIVE);
    pick(OTHER);
    QCOMPARE(files(), QStringList({ENGINE, DRIVE, OTHER, DRIVE}));
    QCOMPARE(dialog().fileComboBox()->currentIndex(), 1);
    QCOMPARE(instances(), words("INV0:0"));
    pick(DRIVE);
    QCOMPARE(dialog().fileComboBox()->currentIndex(), 1);
}

void tst_AsamspecsSelect::cancelledFileDialogReselectsTheCellsFile()
{
    QVERIFY(writeFile(ENGINE, asamFile("ECM0 ECM1")));
    QVERIFY(writeFile(DRIVE, asamFile("INV0")));
    showFor(ENGINE, QStringLiteral("ECM1:0"));
    pick(DRIVE);
    m_fileDialogs->cancel();
    pick(OTHER);
    QCOMPARE(files(), QStringList({ENGINE, DRIVE, OTHER}));
    QCOMPARE(file(), ENGINE);
    QCOMPARE(instances(), words("ECM0:0 ECM1:0"));
    QCOMPARE(instance(), QStringLiteral("ECM1:0"));
    QCOMPARE(m_fileDialogs->seen.size(), 1);
}

void tst_AsamspecsSelect::cancelledFileDialogKeepsOtherIfTheCellHasNoFile()
{
    QVERIFY(writeFile(ENGINE, asamFile("ECM0 ECM1")));
    showFor(QString());
    m_fileDialogs->cancel();
    pick(OTHER);
    QCOMPARE(file(), OTHER);
    QCOMPARE(instances(), words("ECM0:0 ECM1:0"));
    QCOMPARE(m_fileDialogs->seen.size(), 1);
}

void tst_AsamspecsSelect::otherAsTheOnlyItemOpensTheFileDialog()
{
    const auto elsewhere = QStringLiteral("/tmp/elsewhere");
    QVERIFY(writeFile(elsewhere, asamFile("A")));
    m_fileDialogs->choose(elsewhere);
    showFor(QString());
    QCOMPARE(files(), QStringList({OTHER, elsewhere}));
    QCOMPARE(file(), elsewhere);
    QCOMPARE(instances(), words("A:0"));
    QCOMPARE(m_fileDialogs->seen.size(), 1);
}

void tst_AsamspecsSelect::otherAsTheCellsFileOpensNoEndlessDialogs_data()
{
    QTest::addColumn<bool>("filesThere");
    QTest::addColumn<bool>("chooses");
    QTest::newRow("beside a file, cancelled") << true << false;
    QTest::newRow("beside a file, with a choice") << true << true;
    QTest::newRow("alone, cancelled") << false << false;
    QTest::newRow("alone, with a choice") << false << true;
}

// "Other" as the cell's own file equals the item, so the dialog asks twice while it is shown: when
// the item becomes current, and for the cell.
void tst_AsamspecsSelect::otherAsTheCellsFileOpensNoEndlessDialogs()
{
    QFETCH(bool, filesThere);
    QFETCH(bool, chooses);
    const auto elsewhere = QStringLiteral("/tmp/elsewhere");
    QVERIFY(writeFile(elsewhere, asamFile("A")));
    if (filesThere)
        QVERIFY(writeFile(ENGINE, asamFile("ECM0")));
    for (int i = 0; i < 2 && chooses; ++i)
        m_fileDialogs->choose(elsewhere);
    showFor(OTHER);
    QCOMPARE(file(), chooses ? elsewhere : OTHER);
    QCOMPARE(files().count(OTHER), 2);
    QCOMPARE(m_fileDialogs->seen.size(), filesThere && chooses ? 1 : 2);
    QVERIFY(dialog().isVisible());
}

// ---- The end -----------------------------------------------------------------------------------

void tst_AsamspecsSelect::okButtonAcceptsTheDialog()
{
    showFor(ENGINE);
    const QSignalSpy finished(&dialog(), &QDialog::finished);
    press("Ok_button");
    QCOMPARE(finished.size(), 1);
    QCOMPARE(finished[0][0].toInt(), 1);
    QCOMPARE(dialog().canceled, 0);
    QVERIFY(!dialog().isVisible());
}

// hideEvent() rejects again, so the signals are emitted twice.
void tst_AsamspecsSelect::cancelButtonRejectsTheDialog()
{
    showFor(ENGINE);
    const QSignalSpy finished(&dialog(), &QDialog::finished);
    const QSignalSpy closed(&dialog(), &asamspecs_select::closeDialog);
    press("cancel_button");
    QCOMPARE(dialog().canceled, 1);
    QCOMPARE(dialog().result(), int(QDialog::Rejected));
    QCOMPARE(closed.size(), 1);
    QCOMPARE(finished.size(), 2);
    QCOMPARE(finished[0][0].toInt(), 0);
    QCOMPARE(finished[1][0].toInt(), 0);
    QVERIFY(!dialog().isVisible());
}

void tst_AsamspecsSelect::closingTheDialogDoesNotSetCanceled_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("the window's close button") << false;
    QTest::newRow("the Escape key") << true;
}

void tst_AsamspecsSelect::closingTheDialogDoesNotSetCanceled()
{
    QFETCH(bool, byKey);
    showFor(ENGINE);
    const QSignalSpy finished(&dialog(), &QDialog::finished);
    const QSignalSpy closed(&dialog(), &asamspecs_select::closeDialog);
    if (byKey)
        QTest::keyClick(&dialog(), Qt::Key_Escape);
    else
        dialog().close();
    QCOMPARE(finished.size(), 1);
    QCOMPARE(finished[0][0].toInt(), 0);
    QCOMPARE(dialog().canceled, 0);
    QCOMPARE(closed.size(), 0);
}

void tst_AsamspecsSelect::okResetsCanceled()
{
    showFor(ENGINE);
    press("cancel_button");
    dialog().show();
    press("Ok_button");
    QCOMPARE(dialog().canceled, 0);
    QCOMPARE(dialog().result(), int(QDialog::Accepted));
}

void tst_AsamspecsSelect::isShownBelowItsPositionInTheWindow()
{
    const QSignalSpy mapped(&dialog(), &asamspecs_select::mapParent);
    dialog().setGeometry(30, 40, 350, 200);
    showFor(ENGINE);
    const QPoint frame = dialog().geometry().topLeft() - dialog().pos();
    const QPoint place = m_window->mapToGlobal(QPoint(30, 40) - frame) + QPoint(0, 80);
    QCOMPARE(dialog().geometry(), QRect(place, QSize(350, 200)));
    QCOMPARE(mapped.size(), 1);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_AsamspecsSelect)

#include "tst_asamspecs_select.moc"
