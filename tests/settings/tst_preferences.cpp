// Preferences: the dialog alone, and as the window uses it.

#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFontComboBox>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>

#include "form_walk.h"
#include "preferences.h"
#include "settings_file.h"
#include "window_test.h"

namespace {

const auto SANS = QStringLiteral("DejaVu Sans");
const auto SERIF = QStringLiteral("DejaVu Serif");
const auto MISSING = QStringLiteral("No Such Family");
const auto SPACER = QStringLiteral("a spacer");

template <typename Widget>
Widget* part(const QWidget* dialog, const char* name)
{
    return dialog->findChild<Widget*>(QLatin1String(name));
}

QLabel* colorLabel(const QWidget* dialog)
{
    return part<QLabel>(dialog, "ColorLabel");
}

QFontComboBox* fontBox(const QWidget* dialog)
{
    return part<QFontComboBox>(dialog, "editorFontComboBox");
}

void pressButton(const QDialog* dialog, QDialogButtonBox::StandardButton which)
{
    part<QDialogButtonBox>(dialog, "buttonBox")->button(which)->click();
}

void setSize(const QDialog* dialog, int size)
{
    part<QSpinBox>(dialog, "editorFontSize")->setValue(size);
}

// The colour dialog opens when the button is pressed, not when it is released.
void pressColorButton(const QDialog* dialog)
{
    QTest::mousePress(part<QPushButton>(dialog, "syntaxErrorColorButton"), Qt::LeftButton);
}

// The names of the items of a layout in their order; those of a nested layout follow its name.
QStringList partsOf(QLayout* layout)
{
    QStringList names{layout->objectName()};
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem* const item = layout->itemAt(i);
        if (item->layout() != nullptr)
            names += partsOf(item->layout());
        else
            names += item->widget() == nullptr ? SPACER : item->widget()->objectName();
    }
    return names;
}

// The rectangle of a child widget in the dialog.
QRect placeOf(const QWidget* dialog, const char* name)
{
    const auto* const found = part<QWidget>(dialog, name);
    return {found->mapTo(dialog, QPoint()), found->size()};
}

bool isAbove(const QRect& upper, const QRect& lower)
{
    return upper.bottom() < lower.top();
}

bool isLeftOf(const QRect& left, const QRect& right)
{
    return left.right() < right.left();
}

void chooseIn(QDialog* dialog, const QColor& color)
{
    qobject_cast<QColorDialog*>(dialog)->setCurrentColor(color);
    dialog->accept();
}

// The background and text colours of a palette.
QVector<QColor> colorsOf(const QPalette& palette)
{
    return {palette.color(QPalette::Window), palette.color(QPalette::WindowText)};
}

preference_results somePreferences()
{
    preference_results prefs;
    prefs.syntaxColor = QColor(Qt::blue);
    prefs.editorFont = QFont(SERIF, 15);
    prefs.syntaxFont = QFont(SANS, 16, QFont::Bold, true);
    prefs.syntaxBold = true;
    prefs.syntaxItalic = true;
    prefs.syntaxFontSize = 17;
    prefs.editorFontSize = 18;
    return prefs;
}

// Counts the paint events of a widget.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget* widget) { widget->installEventFilter(this); }

    int count = 0;

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

}  // namespace

class tst_Preferences : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void layoutOfTheForm();
    void partsInOrder();
    void rowsAndColumns();
    void spacerBeforeTheColor();
    void textsOfTheForm();
    void noTextIsClipped_data();
    void noTextIsClipped();
    void fieldsHaveNames();
    void isShownAtItsPositionInTheParent();
    void opensWithoutAParent();

    void showsThePreferences();
    void invalidColorIsShown();
    void resultsAreTheShownValues();
    void otherPreferencesAreKept();
    void unchangedFamilyStays_data();
    void unchangedFamilyStays();
    void colorIsChosen();
    void colorDialogBeginsWithTheColor();
    void cancelledColorDialogKeepsTheColor();

    void hiddenDialogIsRejected();
    void acceptedDialogIsNotRejected();
    void buttonsEndTheDialog_data();
    void buttonsEndTheDialog();

    void windowShowsItsPreferences();
    void okIsApplied();
    void okGivesSyntaxFontItsSize();
    void okWithoutAChangeKeepsAMissingFontFamily();
    void okMarksWrongCellsInTheNewColor();
    void okFitsTheColumns();
    void okWithTheSameFontKeepsTheColumns();
    void cancelChangesNothing_data();
    void cancelChangesNothing();
    void nothingIsStoredBeforeTheWindowCloses();
    void dialogsStayWithTheWindow();

private:
    void whenAsked(const ModalDialogs::Answer& answer);
};

// Opens the dialog from the menu and answers it.
void tst_Preferences::whenAsked(const ModalDialogs::Answer& answer)
{
    m_dialogs->answer(answer);
    actionOf(*m_window, "actionPreferences")->trigger();
}

// ---- The form ----------------------------------------------------------------------------------

void tst_Preferences::layoutOfTheForm()
{
    Preferences dialog(m_window.get());
    QCOMPARE(dialog.objectName(), QStringLiteral("Preferences"));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Editor Preferences"));
    QCOMPARE(dialog.windowType(), Qt::Drawer);
    QCOMPARE(dialog.size(), QSize(280, 150));
    QCOMPARE(dialog.minimumSize(), QSize(280, 150));
    QCOMPARE(dialog.maximumSize(), QSize(280, 150));
    QCOMPARE(dialog.windowModality(), Qt::WindowModal);
    QCOMPARE(dialog.font().pointSize(), 10);
    QVERIFY(dialog.autoFillBackground());
    QCOMPARE(dialog.parentWidget(), m_window.get());
}

void tst_Preferences::partsInOrder()
{
    const Preferences dialog;
    const QStringList expected{QStringLiteral("verticalLayout_2"),
                               QStringLiteral("horizontalLayout"),
                               QStringLiteral("verticalLayout"),
                               QStringLiteral("label"),
                               QStringLiteral("editorFontComboBox"),
                               QStringLiteral("verticalLayout_4"),
                               QStringLiteral("label_3"),
                               QStringLiteral("editorFontSize"),
                               QStringLiteral("horizontalLayout_3"),
                               QStringLiteral("syntaxErrorColorButton"),
                               SPACER,
                               QStringLiteral("ColorLabel"),
                               QStringLiteral("buttonBox")};
    QCOMPARE(partsOf(dialog.layout()), expected);
}

void tst_Preferences::rowsAndColumns()
{
    Preferences dialog;
    dialog.show();
    const QRect font = placeOf(&dialog, "editorFontComboBox");
    const QRect size = placeOf(&dialog, "editorFontSize");
    const QRect button = placeOf(&dialog, "syntaxErrorColorButton");
    const QRect color = placeOf(&dialog, "ColorLabel");
    QVERIFY(isAbove(placeOf(&dialog, "label"), font));
    QVERIFY(isAbove(placeOf(&dialog, "label_3"), size));
    QVERIFY(isLeftOf(font, size));
    QVERIFY(isLeftOf(placeOf(&dialog, "label"), placeOf(&dialog, "label_3")));
    QVERIFY(isAbove(font, button) && isAbove(size, color));
    QVERIFY(isLeftOf(button, color));
    QVERIFY(isAbove(button, placeOf(&dialog, "buttonBox")));
    QVERIFY(isAbove(color, placeOf(&dialog, "buttonBox")));
}

void tst_Preferences::spacerBeforeTheColor()
{
    const Preferences dialog;
    const auto* const row = dialog.findChild<QLayout*>(QStringLiteral("horizontalLayout_3"));
    const QSpacerItem* const spacer = row->itemAt(1)->spacerItem();
    QVERIFY(spacer != nullptr);
    QCOMPARE(spacer->sizeHint(), QSize(20, 20));
    QVERIFY(spacer->expandingDirections() == Qt::Horizontal);
}

void tst_Preferences::textsOfTheForm()
{
    Preferences dialog;
    QCOMPARE(part<QLabel>(&dialog, "label")->text(), QStringLiteral("Editor Font"));
    QCOMPARE(part<QLabel>(&dialog, "label_3")->text(), QStringLiteral("Size"));
    QCOMPARE(part<QPushButton>(&dialog, "syntaxErrorColorButton")->text(),
             QStringLiteral("Syntax Error Color"));
    QCOMPARE(colorLabel(&dialog)->text(), QStringLiteral("TextLabel"));
    QCOMPARE(colorLabel(&dialog)->minimumWidth(), 77);
    const auto* const buttons = part<QDialogButtonBox>(&dialog, "buttonBox");
    QCOMPARE(buttons->orientation(), Qt::Horizontal);
    QCOMPARE(buttons->standardButtons(), QDialogButtonBox::Cancel | QDialogButtonBox::Ok);
}

void tst_Preferences::noTextIsClipped_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<int>("size");

    QTest::newRow("a usual font") << SANS << 12;
    QTest::newRow("a large font") << SANS << 40;
    QTest::newRow("a font with a long name")
        << QStringLiteral("A Family With A Name That Is Very Much Too Long For The Dialog") << 12;
}

// The dialog has a fixed font size, so that a large application font fits.
void tst_Preferences::noTextIsClipped()
{
    QFETCH(QString, family);
    QFETCH(int, size);
    QApplication::setFont(QFont(family, size));
    preference_results prefs = somePreferences();
    prefs.editorFont = QApplication::font();
    m_window->show();
    m_dialogs.reset();
    Preferences dialog(m_window.get());
    dialog.setDefaults(prefs);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QCOMPARE(dialog.size(), QSize(280, 150));
    for (const QWidget* const child : dialog.findChildren<QWidget*>()) {
        const bool isPart = qobject_cast<const QLabel*>(child) != nullptr ||
                            qobject_cast<const QPushButton*>(child) != nullptr ||
                            qobject_cast<const QSpinBox*>(child) != nullptr;
        if (!isPart || !child->isVisible())
            continue;
        const QRect place(child->mapTo(&dialog, QPoint()), child->size());
        QCOMPARE(child->font().pointSize(), 10);
        QVERIFY2(dialog.rect().contains(place), qPrintable(child->objectName()));
        QVERIFY2(child->width() >= child->minimumSizeHint().width() &&
                     child->height() >= child->minimumSizeHint().height(),
                 qPrintable(child->objectName()));
    }
    QVERIFY(fontBox(&dialog)->width() >= 120);
}

// The colour is the description of its button, which takes the focus.
void tst_Preferences::fieldsHaveNames()
{
    Preferences dialog;
    preference_results prefs;
    prefs.syntaxColor = QColor(QStringLiteral("#12ab34"));
    dialog.setDefaults(prefs);
    dialog.show();
    QCOMPARE(namelessFields(dialog), QStringList());
    QCOMPARE(labelsWithoutBuddy(dialog), QStringList{QStringLiteral("ColorLabel")});
    QCOMPARE(labelOf(fontBox(&dialog)), QStringLiteral("Editor Font"));
    auto* const size = dialog.findChild<QSpinBox*>();
    QCOMPARE(accessibleText(size, QAccessible::Name), QStringLiteral("Size"));
    auto* const button = dialog.findChild<QPushButton*>(QStringLiteral("syntaxErrorColorButton"));
    QCOMPARE(accessibleText(button, QAccessible::Name), QStringLiteral("Syntax Error Color"));
    QCOMPARE(accessibleText(button, QAccessible::Description), QStringLiteral("#12ab34"));
}

void tst_Preferences::isShownAtItsPositionInTheParent()
{
    m_dialogs.reset();
    m_window->move(150, 130);
    m_window->show();
    Preferences dialog(m_window.get());
    dialog.setAttribute(Qt::WA_Moved);
    dialog.move(20, 30);
    QSignalSpy mapped(&dialog, &Preferences::mapParent);
    dialog.show();
    QCOMPARE(mapped.count(), 0);
    const QPoint expected = m_window->mapToGlobal(dialog.pos());
    QTRY_COMPARE(mapped.count(), 1);
    QCOMPARE(dialog.geometry(), QRect(expected, QSize(280, 150)));
}

void tst_Preferences::opensWithoutAParent()
{
    m_dialogs.reset();
    Preferences dialog;
    dialog.move(20, 30);
    QSignalSpy mapped(&dialog, &Preferences::mapParent);
    dialog.show();
    const QRect place = dialog.geometry();
    QTRY_COMPARE(mapped.count(), 1);
    QCOMPARE(dialog.geometry(), place);
}

// ---- What goes in and out ----------------------------------------------------------------------

void tst_Preferences::showsThePreferences()
{
    Preferences dialog;
    dialog.setDefaults(somePreferences());
    QCOMPARE(fontBox(&dialog)->currentText(), SERIF);
    QCOMPARE(part<QSpinBox>(&dialog, "editorFontSize")->value(), 18);
    QCOMPARE(colorLabel(&dialog)->text(), QStringLiteral("#0000ff"));
    QCOMPARE(colorsOf(colorLabel(&dialog)->palette()), colorsOf(QColor(Qt::blue)));
    QVERIFY(colorLabel(&dialog)->autoFillBackground());
}

void tst_Preferences::invalidColorIsShown()
{
    preference_results prefs = somePreferences();
    prefs.syntaxColor = QColor();
    Preferences dialog;
    dialog.setDefaults(prefs);
    QCOMPARE(colorLabel(&dialog)->text(), QStringLiteral("#000000"));
    dialog.getResults(&prefs);
    QVERIFY(!prefs.syntaxColor.isValid());
}

void tst_Preferences::resultsAreTheShownValues()
{
    Preferences dialog;
    dialog.setDefaults(somePreferences());
    fontBox(&dialog)->setCurrentFont(QFont(SANS));
    setSize(&dialog, 31);
    preference_results results;
    dialog.getResults(&results);
    QCOMPARE(results.editorFont, fontBox(&dialog)->currentFont());
    QCOMPARE(results.editorFont.family(), SANS);
    QCOMPARE(results.editorFontSize, 31);
    QCOMPARE(results.syntaxColor, QColor(Qt::blue));
}

void tst_Preferences::otherPreferencesAreKept()
{
    Preferences dialog;
    dialog.setDefaults(preference_results());
    preference_results results = somePreferences();
    dialog.getResults(&results);
    const preference_results before = somePreferences();
    QCOMPARE(results.syntaxFont, before.syntaxFont);
    QCOMPARE(results.syntaxBold, before.syntaxBold);
    QCOMPARE(results.syntaxItalic, before.syntaxItalic);
    QCOMPARE(results.syntaxFontSize, before.syntaxFontSize);
}

void tst_Preferences::unchangedFamilyStays_data()
{
    QTest::addColumn<QString>("family");

    QTest::newRow("a family of the machine") << SERIF;
    QTest::newRow("a family that the machine has not") << MISSING;
}

// The editor's font is the application font when the dialog opens.
void tst_Preferences::unchangedFamilyStays()
{
    QFETCH(QString, family);
    preference_results prefs = somePreferences();
    prefs.editorFont = QFont(family, 15);
    QApplication::setFont(prefs.editorFont);
    Preferences dialog;
    dialog.setDefaults(prefs);
    QCOMPARE(fontBox(&dialog)->currentText(), family);
    dialog.getResults(&prefs);
    QCOMPARE(prefs.editorFont.family(), family);
}

void tst_Preferences::colorIsChosen()
{
    Preferences dialog;
    dialog.setDefaults(somePreferences());
    m_dialogs->answer([](QDialog* colors) { chooseIn(colors, QColor(1, 2, 3)); });
    pressColorButton(&dialog);
    QCOMPARE(colorLabel(&dialog)->text(), QStringLiteral("#010203"));
    QCOMPARE(colorsOf(colorLabel(&dialog)->palette()), colorsOf(QColor(1, 2, 3)));
    preference_results results;
    dialog.getResults(&results);
    QCOMPARE(results.syntaxColor, QColor(1, 2, 3));
}

void tst_Preferences::colorDialogBeginsWithTheColor()
{
    Preferences dialog;
    dialog.setDefaults(somePreferences());
    QColor initial;
    const QWidget* parent = &dialog;
    m_dialogs->answer([&initial, &parent](QDialog* colors) {
        initial = qobject_cast<QColorDialog*>(colors)->currentColor();
        parent = colors->parentWidget();
        colors->reject();
    });
    pressColorButton(&dialog);
    QCOMPARE(initial, QColor(Qt::blue));
    QCOMPARE(parent, nullptr);
}

void tst_Preferences::cancelledColorDialogKeepsTheColor()
{
    Preferences dialog;
    dialog.setDefaults(somePreferences());
    m_dialogs->cancel();
    pressColorButton(&dialog);
    QCOMPARE(colorLabel(&dialog)->text(), QStringLiteral("#0000ff"));
    preference_results results;
    dialog.getResults(&results);
    QCOMPARE(results.syntaxColor, QColor(Qt::blue));
}

// ---- How it ends -------------------------------------------------------------------------------

void tst_Preferences::hiddenDialogIsRejected()
{
    Preferences dialog;
    QSignalSpy closed(&dialog, &Preferences::closeDialog);
    QSignalSpy rejected(&dialog, &QDialog::rejected);
    dialog.show();
    dialog.hide();
    QCOMPARE(closed.count(), 1);
    QCOMPARE(rejected.count(), 1);
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

void tst_Preferences::acceptedDialogIsNotRejected()
{
    Preferences dialog;
    QSignalSpy closed(&dialog, &Preferences::closeDialog);
    QSignalSpy rejected(&dialog, &QDialog::rejected);
    dialog.show();
    dialog.accept();
    QCOMPARE(closed.count(), 0);
    QCOMPARE(rejected.count(), 0);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

void tst_Preferences::buttonsEndTheDialog_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("result");

    QTest::newRow("OK") << int(QDialogButtonBox::Ok) << int(QDialog::Accepted);
    QTest::newRow("Cancel") << int(QDialogButtonBox::Cancel) << int(QDialog::Rejected);
}

void tst_Preferences::buttonsEndTheDialog()
{
    QFETCH(int, button);
    Preferences dialog;
    m_dialogs->answer([button](QDialog* asked) {
        pressButton(asked, static_cast<QDialogButtonBox::StandardButton>(button));
    });
    QTEST(dialog.exec(), "result");
    QVERIFY(!dialog.isVisible());
}

// ---- In the window -----------------------------------------------------------------------------

void tst_Preferences::windowShowsItsPreferences()
{
    QVERIFY(writeSettingsLines("editorFont=DejaVu Serif\neditorFontSize=14\n"));
    m_window->readSettings();
    QStringList shown;
    const QWidget* parent = nullptr;
    whenAsked([&shown, &parent](QDialog* dialog) {
        shown = QStringList{dialog->objectName(), fontBox(dialog)->currentText(),
                            part<QSpinBox>(dialog, "editorFontSize")->text(),
                            colorLabel(dialog)->text()};
        parent = dialog->parentWidget();
        dialog->reject();
    });
    const QStringList expected{QStringLiteral("Preferences"), SERIF, QStringLiteral("14"),
                               QStringLiteral("#ff0000")};
    QCOMPARE(shown, expected);
    QCOMPARE(parent, m_window.get());
}

void tst_Preferences::okIsApplied()
{
    m_window->readSettings();
    m_dialogs->answer([this](QDialog* dialog) {
        m_dialogs->answer([](QDialog* colors) { chooseIn(colors, QColor(1, 2, 3)); });
        pressColorButton(dialog);
        fontBox(dialog)->setCurrentFont(QFont(SERIF));
        setSize(dialog, 25);
        pressButton(dialog, QDialogButtonBox::Ok);
    });
    m_window->preferences();
    QCOMPARE(m_window->syntaxColor(), QColor(1, 2, 3));
    QCOMPARE(m_window->editorFont().family(), SERIF);
    QCOMPARE(m_window->editorFont().pointSize(), 25);
    QCOMPARE(m_window->myPrefs.editorFontSize, 25);
    QCOMPARE(QApplication::font(), m_window->editorFont());
    QCOMPARE(m_window->menuWidget()->font().family(), QStringLiteral("Spectral"));
    QCOMPARE(viewOf(*m_window, 0)->font().pointSize(), 25);
}

void tst_Preferences::okGivesSyntaxFontItsSize()
{
    QVERIFY(writeSettingsLines("syntaxFont=DejaVu Serif\nsyntaxFontSize=19\n"));
    m_window->readSettings();
    QVERIFY(m_window->syntaxFont().pointSize() != 19);
    whenAsked([](QDialog* dialog) { pressButton(dialog, QDialogButtonBox::Ok); });
    QCOMPARE(m_window->syntaxFont().pointSize(), 19);
    QCOMPARE(m_window->syntaxFont().family(), SERIF);
}

void tst_Preferences::okWithoutAChangeKeepsAMissingFontFamily()
{
    QVERIFY(writeSettingsLines("editorFont=No Such Family\n"));
    m_window->readSettings();
    whenAsked([](QDialog* dialog) { pressButton(dialog, QDialogButtonBox::Ok); });
    QCOMPARE(m_window->editorFont().family(), MISSING);
    QCOMPARE(m_window->editorFont().pointSize(), 12);
}

// A new colour alone sends no event to any widget. The window must not become active meanwhile,
// since that would repaint it.
void tst_Preferences::okMarksWrongCellsInTheNewColor()
{
    loadGoodFile();
    m_window->readSettings();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QTreeView* const view = viewOf(*m_window, 0);
    edit(0, 7, 1, QStringLiteral("no interval"));
    m_window->checkErrorCount();
    const QModelIndex wrong = view->model()->index(7, 1);
    QCOMPARE(wrong.data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::red));
    whenAsked([](QDialog* dialog) { pressButton(dialog, QDialogButtonBox::Ok); });
    QCoreApplication::processEvents();
    int paintsBeforeOk = 0;
    QWidget other;
    other.show();
    PaintCounter paints(view->viewport());
    m_dialogs->answer([this, &paints, &paintsBeforeOk, &other](QDialog* dialog) {
        m_dialogs->answer([](QDialog* colors) { chooseIn(colors, QColor(1, 2, 3)); });
        pressColorButton(dialog);
        QApplication::setActiveWindow(&other);
        QCoreApplication::processEvents();
        paintsBeforeOk = paints.count;
        pressButton(dialog, QDialogButtonBox::Ok);
    });
    m_window->preferences();
    QCOMPARE(wrong.data(Qt::ForegroundRole).value<QColor>(), QColor(1, 2, 3));
    QTRY_VERIFY(paints.count > paintsBeforeOk);
}

void tst_Preferences::okFitsTheColumns()
{
    loadGoodFile();
    m_window->readSettings();
    QTreeView* const view = viewOf(*m_window, 0);
    const int width = view->columnWidth(1);
    whenAsked([](QDialog* dialog) {
        setSize(dialog, 40);
        pressButton(dialog, QDialogButtonBox::Ok);
    });
    QVERIFY(view->columnWidth(1) > 2 * width);
    const int fitted = view->columnWidth(1);
    view->resizeColumnToContents(1);
    QCOMPARE(view->columnWidth(1), fitted);
}

void tst_Preferences::okWithTheSameFontKeepsTheColumns()
{
    loadGoodFile();
    m_window->readSettings();
    QTreeView* const view = viewOf(*m_window, 0);
    view->setColumnWidth(1, 321);
    m_dialogs->answer([this](QDialog* dialog) {
        m_dialogs->answer([](QDialog* colors) { chooseIn(colors, QColor(1, 2, 3)); });
        pressColorButton(dialog);
        pressButton(dialog, QDialogButtonBox::Ok);
    });
    m_window->preferences();
    QCOMPARE(m_window->syntaxColor(), QColor(1, 2, 3));
    QCOMPARE(view->columnWidth(1), 321);
}

void tst_Preferences::cancelChangesNothing_data()
{
    QTest::addColumn<bool>("byButton");

    QTest::newRow("by its button") << true;
    QTest::newRow("by closing the dialog") << false;
}

void tst_Preferences::cancelChangesNothing()
{
    QFETCH(bool, byButton);
    QVERIFY(writeSettingsLines("syntaxFont=DejaVu Serif\nsyntaxFontSize=19\n"));
    m_window->readSettings();
    const preference_results before = m_window->myPrefs;
    m_dialogs->answer([this, byButton](QDialog* dialog) {
        m_dialogs->answer([](QDialog* colors) { chooseIn(colors, QColor(1, 2, 3)); });
        pressColorButton(dialog);
        fontBox(dialog)->setCurrentFont(QFont(SERIF));
        setSize(dialog, 25);
        if (byButton)
            pressButton(dialog, QDialogButtonBox::Cancel);
        else
            dialog->close();
    });
    m_window->preferences();
    QCOMPARE(m_window->syntaxColor(), before.syntaxColor);
    QCOMPARE(m_window->editorFont(), before.editorFont);
    QCOMPARE(m_window->syntaxFont(), before.syntaxFont);
    QCOMPARE(m_window->myPrefs.editorFontSize, before.editorFontSize);
    QCOMPARE(QApplication::font(), before.editorFont);
}

void tst_Preferences::nothingIsStoredBeforeTheWindowCloses()
{
    m_window->readSettings();
    whenAsked([](QDialog* dialog) {
        setSize(dialog, 25);
        pressButton(dialog, QDialogButtonBox::Ok);
    });
    QVERIFY(!QFileInfo::exists(settingsPath()));
    QVERIFY(m_window->close());
    QCOMPARE(stored(QStringLiteral("editorFontSize")).toInt(), 25);
}

void tst_Preferences::dialogsStayWithTheWindow()
{
    m_window->readSettings();
    whenAsked([](QDialog* dialog) { dialog->reject(); });
    whenAsked([](QDialog* dialog) { dialog->accept(); });
    QCOMPARE(m_window->findChildren<Preferences*>().size(), 2);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_Preferences)
#include "tst_preferences.moc"
