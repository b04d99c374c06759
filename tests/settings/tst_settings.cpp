// The settings file: what the window reads from it, and what it writes when it closes.

#include <QApplication>
#include <QFileInfo>
#include <QHeaderView>

#include "settings_file.h"
#include "window_test.h"

namespace {

const auto FOLDER = QStringLiteral("/specs/qt/ScribonUI");

QStringList allKeys()
{
    return {QStringLiteral("editorFont"),
            QStringLiteral("editorFontSize"),
            QStringLiteral("pos"),
            QStringLiteral("size"),
            QStringLiteral("syntaxBold"),
            QStringLiteral("syntaxFont"),
            QStringLiteral("syntaxFontSize"),
            QStringLiteral("syntaxItalic"),
            QStringLiteral("syntaxfgcolor")};
}

// The window's value for the key.
QVariant factOf(const MainWindow& window, const QString& key)
{
    const preference_results& prefs = window.myPrefs;
    const QHash<QString, QVariant> facts{{QStringLiteral("pos"), window.pos()},
                                         {QStringLiteral("size"), window.size()},
                                         {QStringLiteral("syntaxfgcolor"), prefs.syntaxColor},
                                         {QStringLiteral("syntaxFont"), prefs.syntaxFont.family()},
                                         {QStringLiteral("editorFont"), prefs.editorFont.family()},
                                         {QStringLiteral("syntaxBold"), prefs.syntaxBold},
                                         {QStringLiteral("syntaxItalic"), prefs.syntaxItalic},
                                         {QStringLiteral("syntaxFontSize"), prefs.syntaxFontSize},
                                         {QStringLiteral("editorFontSize"), prefs.editorFontSize}};
    return facts.value(key);
}

QVariantList factsOf(const MainWindow& window)
{
    QVariantList facts;
    for (const QString& key : allKeys())
        facts.append(factOf(window, key));
    return facts;
}

QVariantList defaultFacts()
{
    return {QStringLiteral("Spectral"),
            12,
            QPoint(200, 200),
            QSize(600, 600),
            false,
            QStringLiteral("Spectral"),
            12,
            false,
            QColor(Qt::red)};
}

QByteArray otherSettings()
{
    return "pos=@Point(31 47)\n"
           "size=@Size(812 723)\n"
           "syntaxfgcolor=#0000ff\n"
           "syntaxFont=DejaVu Serif\n"
           "editorFont=DejaVu Sans Mono\n"
           "syntaxBold=true\n"
           "syntaxItalic=true\n"
           "syntaxFontSize=19\n"
           "editorFontSize=21\n";
}

QVariantList otherFacts()
{
    return {QStringLiteral("DejaVu Sans Mono"), 21, QPoint(31, 47), QSize(812, 723), true,
            QStringLiteral("DejaVu Serif"),     19, true,           QColor(Qt::blue)};
}

bool writeWholeFile(const QByteArray& bytes)
{
    return writeFile(settingsPath(), bytes);
}

}  // namespace

class tst_Settings : public WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void firstRun();
    void defaultFonts();
    void storedValue_data();
    void storedValue();
    void storedFile_data();
    void storedFile();
    void invalidSettingsValue_data();
    void invalidSettingsValue();
    void invalidSettingsFile_data();
    void invalidSettingsFile();
    void unreadableFile();
    void hugeFontSizes_data();
    void hugeFontSizes();
    void editorFontBecomesTheApplications();
    void syntaxFontIsTheFamilyAlone();
    void missingFontFamilyIsKept();
    void windowIsNeverSmallerThanItsForm();
    void viewsMeasureInTheEditorFont();
    void headersKeepTheirFont();

    void everyKeyIsWritten();
    void textOfTheFile();
    void weightsStoredAsBold_data();
    void weightsStoredAsBold();
    void stylesStoredAsItalic_data();
    void stylesStoredAsItalic();
    void sizesComeFromTheFonts();
    void syntaxFontSizeOfAStoredFamily();
    void nothingIsWrittenBeforeTheWindowCloses();
    void cancelledCloseWritesNothing();
    void settingsAreRestoredInTheNextRun();
    void settingsOfTheWindowClosedLastAreKept();
    void unknownKeysAreKept();

    void settingsThatCannotBeWritten_data();
    void settingsThatCannotBeWritten();
};

// ---- Reading -----------------------------------------------------------------------------------

void tst_Settings::firstRun()
{
    m_window->readSettings();
    QCOMPARE(factsOf(*m_window), defaultFacts());
    QVERIFY(!QFileInfo::exists(QStringLiteral("/specs/qt")));
}

void tst_Settings::defaultFonts()
{
    m_window->readSettings();
    for (const QFont& font : {m_window->editorFont(), m_window->syntaxFont()}) {
        QCOMPARE(font.family(), QStringLiteral("Spectral"));
        QCOMPARE(font.pointSize(), 12);
        QCOMPARE(font.weight(), 57);
        QCOMPARE(font.style(), QFont::StyleNormal);
    }
}

void tst_Settings::storedValue_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("expected");
    const auto row = [](const char* name, const char* line, const QVariant& expected) {
        const QByteArray text(line);
        QTest::newRow(name) << text << QString::fromLatin1(text.left(text.indexOf('=')))
                            << expected;
    };

    row("a position", "pos=@Point(31 47)", QPoint(31, 47));
    row("a position left of and above the screen", "pos=@Point(-31 -47)", QPoint(-31, -47));
    row("a size", "size=@Size(812 723)", QSize(812, 723));
    row("a colour by its name", "syntaxfgcolor=blue", QColor(Qt::blue));
    row("a colour by its number", "syntaxfgcolor=#0000ff", QColor(Qt::blue));
    row("a syntax font family", "syntaxFont=DejaVu Serif", QStringLiteral("DejaVu Serif"));
    row("an editor font family", "editorFont=DejaVu Serif", QStringLiteral("DejaVu Serif"));
    row("bold", "syntaxBold=true", true);
    row("italic", "syntaxItalic=true", true);
    row("a syntax font size", "syntaxFontSize=19", 19);
    row("an editor font size", "editorFontSize=19", 19);
}

// If the file has only one key, the others have their defaults.
void tst_Settings::storedValue()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, key);
    QFETCH(QVariant, expected);
    QVERIFY(writeSettingsLines(line + '\n'));
    m_window->readSettings();
    QVariantList facts = defaultFacts();
    QVERIFY(facts.at(allKeys().indexOf(key)) != expected);
    facts[allKeys().indexOf(key)] = expected;
    QCOMPARE(factsOf(*m_window), facts);
}

void tst_Settings::storedFile_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QVariantList>("expected");
    QList<QByteArray> lines = otherSettings().trimmed().split('\n');
    std::reverse(lines.begin(), lines.end());

    QTest::newRow("all keys") << "[General]\n" + otherSettings() << otherFacts();
    QTest::newRow("all keys in reverse") << "[General]\n" + lines.join('\n') << otherFacts();
    QTest::newRow("without a group header") << otherSettings() << otherFacts();
    QTest::newRow("with CRLF line ends")
        << QByteArray("[General]\n" + otherSettings()).replace("\n", "\r\n") << otherFacts();
    QTest::newRow("in another group") << "[scriboneditor]\n" + otherSettings() << defaultFacts();
    QTest::newRow("keys in another case")
        << "[General]\n" + otherSettings().toUpper() << defaultFacts();
    QTest::newRow("unknown keys")
        << QByteArrayLiteral("[General]\nposition=@Point(1 2)\n[more]\npos=@Point(1 2)\n")
        << defaultFacts();
}

void tst_Settings::storedFile()
{
    QFETCH(QByteArray, file);
    QVERIFY(writeWholeFile(file));
    m_window->readSettings();
    QTEST(factsOf(*m_window), "expected");
}

void tst_Settings::invalidSettingsValue_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("expected");
    const auto row = [](const char* name, const char* line, const QVariant& expected) {
        const QByteArray text(line);
        QTest::newRow(name) << text << QString::fromLatin1(text.left(text.indexOf('=')))
                            << expected;
    };
    const QString applicationFamily = QApplication::font().family();

    row("a word as position", "pos=here", QPoint());
    row("a truncated position", "pos=@Point(31", QPoint());
    row("a truncated escape sequence", "pos=\\x", QPoint());
    row("a size as position", "pos=@Size(31 47)", QPoint());
    row("a word as size", "size=large", QSize(600, 600));
    row("a truncated size", "size=@Size(", QSize(600, 600));
    row("a negative window size", "size=@Size(-812 -723)", QSize(600, 600));
    row("no colour", "syntaxfgcolor=reddish", QColor());
    row("an empty colour", "syntaxfgcolor=", QColor());
    row("a point as colour", "syntaxfgcolor=@Point(1 2)", QColor());
    row("a list as syntax font", "syntaxFont=DejaVu Serif, 12", applicationFamily);
    row("a list as editor font", "editorFont=DejaVu Serif, 12", applicationFamily);
    row("a point as editor font", "editorFont=@Point(1 2)", applicationFamily);
    row("a word as bold", "syntaxBold=0", false);
    row("a point as italic", "syntaxItalic=@Point(1 2)", false);
    row("a word as syntax font size", "syntaxFontSize=large", 0);
    row("a word as editor font size", "editorFontSize=large", 0);
    row("a negative font size", "editorFontSize=-12", -12);
    row("a font size beyond the range of int", "editorFontSize=99999999999999999999", 0);
}

void tst_Settings::invalidSettingsValue()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, key);
    QVERIFY(writeSettingsLines(line + '\n'));
    m_window->readSettings();
    QTEST(factOf(*m_window, key), "expected");
    QVERIFY(m_window->editorFont().pointSize() > 0);
    m_window->show();
    QVERIFY(m_window->close());
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_Settings::invalidSettingsFile_data()
{
    QTest::addColumn<QByteArray>("file");
    QByteArray everyByte;
    for (int i = 0; i < 65536; ++i)
        everyByte += static_cast<char>((i * 167) ^ (i >> 8));

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no text") << everyByte;
    QTest::newRow("zeros") << QByteArray(100000, '\0');
    QTest::newRow("one very long line") << QByteArray(1000000, 'x');
    QTest::newRow("an unclosed group header") << QByteArrayLiteral("[General\npos");
    QTest::newRow("truncated bytes of a colour")
        << QByteArrayLiteral("[General]\neditorFont=@Variant(\\0\\0\\0\\x43\\x1)\n");
    QTest::newRow("bytes of a text with a length that is too large") << QByteArrayLiteral(
        "[General]\neditorFont=@Variant(\\0\\0\\0\\n\\0\\x7f\\xff\\xff\\xfe)\n");
    QTest::newRow("bytes of an unknown type")
        << QByteArrayLiteral("[General]\neditorFont=@Variant(\\0\\0\\x7f\\x7f\\0\\0\\0\\0)\n");
    QTest::newRow("an unclosed quote")
        << QByteArrayLiteral("[General]\nsyntaxFont=\"DejaVu Serif\nsyntaxBold=true\n");
}

void tst_Settings::invalidSettingsFile()
{
    QFETCH(QByteArray, file);
    QVERIFY(writeWholeFile(file));
    m_window->readSettings();
    QCOMPARE(m_window->pos(), QPoint(200, 200));
    QCOMPARE(m_window->size(), QSize(600, 600));
    QCOMPARE(m_window->syntaxColor(), QColor(Qt::red));
    QVERIFY(m_window->close());
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_Settings::unreadableFile()
{
    QVERIFY(writeSettingsLines(otherSettings()));
    QVERIFY(QFile::setPermissions(settingsPath(), QFileDevice::Permissions()));
    m_window->readSettings();
    QCOMPARE(factsOf(*m_window), defaultFacts());
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_Settings::hugeFontSizes_data()
{
    QTest::addColumn<QByteArray>("lines");

    QTest::newRow("font size 1000") << QByteArrayLiteral("editorFontSize=1000\n");
    QTest::newRow("font size 1000000") << QByteArrayLiteral("editorFontSize=1000000\n");
    QTest::newRow("the largest font size") << QByteArrayLiteral("editorFontSize=2147483647\n");
    QTest::newRow("the largest window size")
        << QByteArrayLiteral("size=@Size(2147483647 2147483647)\n");
    QTest::newRow("the largest position")
        << QByteArrayLiteral("pos=@Point(2147483647 -2147483648)\n");
}

void tst_Settings::hugeFontSizes()
{
    QFETCH(QByteArray, lines);
    QVERIFY(writeSettingsLines(lines));
    loadGoodFile();
    m_window->readSettings();
    m_window->show();
    QCoreApplication::processEvents();
    QVERIFY(m_window->close());
}

void tst_Settings::editorFontBecomesTheApplications()
{
    QVERIFY(writeSettingsLines(otherSettings()));
    m_window->readSettings();
    QCOMPARE(m_window->editorFont().pointSize(), 21);
    QCOMPARE(QApplication::font(), m_window->editorFont());
}

void tst_Settings::syntaxFontIsTheFamilyAlone()
{
    QVERIFY(writeSettingsLines(otherSettings()));
    m_window->readSettings();
    QFont family = m_applicationFont;
    family.setFamily(QStringLiteral("DejaVu Serif"));
    QCOMPARE(m_window->syntaxFont().family(), family.family());
    QCOMPARE(m_window->syntaxFont().pointSize(), family.pointSize());
    QCOMPARE(m_window->syntaxFont().weight(), family.weight());
    QCOMPARE(m_window->syntaxFont().style(), family.style());
}

void tst_Settings::missingFontFamilyIsKept()
{
    QVERIFY(writeSettingsLines("editorFont=No Such Family\n"));
    m_window->readSettings();
    QCOMPARE(m_window->editorFont().family(), QStringLiteral("No Such Family"));
    QVERIFY(QFontInfo(QApplication::font()).family() != QStringLiteral("No Such Family"));
    QVERIFY(m_window->close());
    QCOMPARE(stored(QStringLiteral("editorFont")).toString(), QStringLiteral("No Such Family"));
}

void tst_Settings::windowIsNeverSmallerThanItsForm()
{
    QVERIFY(writeSettingsLines("size=@Size(10 700)\n"));
    m_window->readSettings();
    QCOMPARE(m_window->size(), QSize(600, 700));
}

void tst_Settings::viewsMeasureInTheEditorFont()
{
    loadGoodFile();
    m_window->readSettings();
    const int width = viewOf(*m_window, 0)->columnWidth(1);
    QVERIFY(writeSettingsLines("editorFontSize=40\n"));
    m_window->readSettings();
    QVERIFY(viewOf(*m_window, 0)->columnWidth(1) > 2 * width);
}

void tst_Settings::headersKeepTheirFont()
{
    QVERIFY(writeSettingsLines("editorFontSize=40\n"));
    m_window->readSettings();
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        const QTreeView* const view = viewOf(*m_window, tab);
        QCOMPARE(view->font().pointSize(), 40);
        QCOMPARE(view->header()->font().pointSize(), 10);
    }
}

// ---- Writing -----------------------------------------------------------------------------------

void tst_Settings::everyKeyIsWritten()
{
    QVERIFY(writeSettingsLines(otherSettings()));
    m_window->readSettings();
    QVERIFY(QFile::remove(settingsPath()));
    m_window->move(61, 83);
    m_window->resize(700, 650);
    m_window->myPrefs.syntaxColor = QColor(1, 2, 3);
    m_window->myPrefs.syntaxFont = QFont(QStringLiteral("DejaVu Sans"), 15, QFont::Bold, true);
    m_window->myPrefs.editorFont = QFont(QStringLiteral("DejaVu Serif"), 17);
    QVERIFY(m_window->close());
    QCOMPARE(storedKeys(), allKeys());
    QCOMPARE(stored(QStringLiteral("pos")), QVariant(QPoint(61, 83)));
    QCOMPARE(stored(QStringLiteral("size")), QVariant(QSize(700, 650)));
    QCOMPARE(stored(QStringLiteral("syntaxfgcolor")), QVariant(QColor(1, 2, 3)));
    QCOMPARE(stored(QStringLiteral("syntaxFont")).toString(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(stored(QStringLiteral("editorFont")).toString(), QStringLiteral("DejaVu Serif"));
    QCOMPARE(stored(QStringLiteral("syntaxBold")).toString(), QStringLiteral("true"));
    QCOMPARE(stored(QStringLiteral("syntaxItalic")).toString(), QStringLiteral("true"));
    QCOMPARE(stored(QStringLiteral("syntaxFontSize")).toInt(), 15);
    QCOMPARE(stored(QStringLiteral("editorFontSize")).toInt(), 17);
}

void tst_Settings::textOfTheFile()
{
    m_window->readSettings();
    QVERIFY(m_window->close());
    QByteArrayList lines = readFile(settingsPath()).trimmed().split('\n');
    std::sort(lines.begin(), lines.end());
    const QByteArrayList expected{
        "[General]",
        "editorFont=Spectral",
        "editorFontSize=12",
        "pos=@Point(200 200)",
        "size=@Size(600 600)",
        "syntaxBold=false",
        "syntaxFont=Spectral",
        "syntaxFontSize=12",
        "syntaxItalic=false",
        R"(syntaxfgcolor=@Variant(\0\0\0\x43\x1\xff\xff\xff\xff\0\0\0\0\0\0))"};
    QCOMPARE(lines, expected);
}

void tst_Settings::weightsStoredAsBold_data()
{
    QTest::addColumn<int>("weight");
    QTest::addColumn<bool>("bold");

    QTest::newRow("normal") << int(QFont::Normal) << false;
    QTest::newRow("just below") << 57 << false;
    QTest::newRow("just enough") << 58 << true;
    QTest::newRow("bold") << int(QFont::Bold) << true;
}

// The font's weight decides, not the stored flags.
void tst_Settings::weightsStoredAsBold()
{
    QFETCH(int, weight);
    QFETCH(bool, bold);
    m_window->readSettings();
    m_window->myPrefs.syntaxBold = !bold;
    m_window->myPrefs.syntaxFont.setWeight(weight);
    QVERIFY(m_window->close());
    QCOMPARE(stored(QStringLiteral("syntaxBold")).toBool(), bold);
}

void tst_Settings::stylesStoredAsItalic_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<bool>("italic");

    QTest::newRow("upright") << int(QFont::StyleNormal) << false;
    QTest::newRow("italic") << int(QFont::StyleItalic) << true;
    QTest::newRow("oblique") << int(QFont::StyleOblique) << true;
}

void tst_Settings::stylesStoredAsItalic()
{
    QFETCH(int, style);
    QFETCH(bool, italic);
    m_window->readSettings();
    m_window->myPrefs.syntaxItalic = !italic;
    m_window->myPrefs.syntaxFont.setStyle(static_cast<QFont::Style>(style));
    QVERIFY(m_window->close());
    QCOMPARE(stored(QStringLiteral("syntaxItalic")).toBool(), italic);
}

void tst_Settings::sizesComeFromTheFonts()
{
    m_window->readSettings();
    m_window->myPrefs.syntaxFontSize = 31;
    m_window->myPrefs.editorFontSize = 33;
    m_window->myPrefs.syntaxFont.setPointSize(15);
    m_window->myPrefs.editorFont.setPointSize(17);
    QVERIFY(m_window->close());
    QCOMPARE(stored(QStringLiteral("syntaxFontSize")).toInt(), 15);
    QCOMPARE(stored(QStringLiteral("editorFontSize")).toInt(), 17);
}

// A font made from a family name has the application font's size, which is then written to the
// file.
void tst_Settings::syntaxFontSizeOfAStoredFamily()
{
    QFont font = m_applicationFont;
    font.setPointSize(23);
    QApplication::setFont(font);
    QVERIFY(writeSettingsLines(otherSettings()));
    m_window->readSettings();
    QCOMPARE(m_window->myPrefs.syntaxFontSize, 19);
    QVERIFY(m_window->close());
    QCOMPARE(stored(QStringLiteral("syntaxFontSize")).toInt(), 23);
    QCOMPARE(stored(QStringLiteral("editorFontSize")).toInt(), 21);
}

void tst_Settings::nothingIsWrittenBeforeTheWindowCloses()
{
    m_window->readSettings();
    m_window->show();
    m_window->move(61, 83);
    QCoreApplication::processEvents();
    QVERIFY(!QFileInfo::exists(settingsPath()));
    QVERIFY(m_window->close());
    QVERIFY(QFileInfo::exists(settingsPath()));
}

void tst_Settings::cancelledCloseWritesNothing()
{
    loadGoodFile();
    m_window->readSettings();
    edit(0, 1, 1, QStringLiteral("'another text'"));
    m_dialogs->answerBox(QMessageBox::Cancel);
    QVERIFY(!m_window->close());
    QVERIFY(!QFileInfo::exists(settingsPath()));
}

void tst_Settings::settingsAreRestoredInTheNextRun()
{
    QVERIFY(writeSettingsLines(otherSettings()));
    m_window->readSettings();
    m_window->move(61, 83);
    m_window->resize(700, 650);
    QVERIFY(m_window->close());
    m_window = std::make_unique<MainWindow>(nullptr);
    m_window->readSettings();
    QCOMPARE(m_window->pos(), QPoint(61, 83));
    QCOMPARE(m_window->size(), QSize(700, 650));
    QCOMPARE(m_window->syntaxColor(), QColor(Qt::blue));
    QCOMPARE(m_window->editorFont().family(), QStringLiteral("DejaVu Sans Mono"));
    QCOMPARE(m_window->editorFont().pointSize(), 21);
    QCOMPARE(m_window->syntaxFont().family(), QStringLiteral("DejaVu Serif"));
}

void tst_Settings::settingsOfTheWindowClosedLastAreKept()
{
    m_window->readSettings();
    MainWindow other(nullptr);
    other.readSettings();
    m_window->move(61, 83);
    other.move(31, 47);
    QVERIFY(other.close());
    QVERIFY(m_window->close());
    QCOMPARE(stored(QStringLiteral("pos")).toPoint(), QPoint(61, 83));
}

void tst_Settings::unknownKeysAreKept()
{
    QVERIFY(writeSettingsLines("theirs=5\n"));
    m_window->readSettings();
    QVERIFY(m_window->close());
    QCOMPARE(stored(QStringLiteral("theirs")).toInt(), 5);
}

// ---- Places that refuse ------------------------------------------------------------------------

void tst_Settings::settingsThatCannotBeWritten_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("readOnly");

    QTest::newRow("a folder that may not be written") << settingsPath() << FOLDER;
    QTest::newRow("a file that may not be written") << settingsPath() << settingsPath();
    QTest::newRow("a directory in the file's place")
        << settingsPath() + QStringLiteral("/file") << QString();
    QTest::newRow("a file in the folder's place") << FOLDER << QString();
}

void tst_Settings::settingsThatCannotBeWritten()
{
    QFETCH(QString, file);
    QFETCH(QString, readOnly);
    const auto mayBeRead = QFileDevice::ReadOwner | QFileDevice::ExeOwner;
    const QByteArray before("[General]\neditorFontSize=15\n");
    QVERIFY(writeFile(file, before));
    if (!readOnly.isEmpty())
        QVERIFY(QFile::setPermissions(readOnly, mayBeRead));
    m_window->readSettings();
    m_window->myPrefs.editorFont.setPointSize(27);
    const bool closed = m_window->close();
    if (!readOnly.isEmpty())
        QFile::setPermissions(readOnly, mayBeRead | QFileDevice::WriteOwner);
    QVERIFY(closed);
    QVERIFY(m_dialogs->boxes.isEmpty());
    QCOMPARE(readFile(file), before);
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_Settings)
#include "tst_settings.moc"
