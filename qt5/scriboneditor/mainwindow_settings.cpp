// What the window remembers from one run to the next.

#include <QApplication>
#include <QFileInfo>
#include <QHeaderView>
#include <QPoint>
#include <QSettings>
#include <QSize>
#include <QTreeView>
#include <algorithm>
#include <array>

#include "mainwindow.h"
#include "preferences.h"

namespace {

const auto SETTINGS_DIRECTORY = QStringLiteral("/specs/qt");

// What the toolkit opens there: the settings, those that it falls back to, and the lock it writes.
constexpr std::array<const char*, 3> SETTINGS_FILES{"ScribonUI/preferences.conf", "ScribonUI.conf",
                                                    "ScribonUI/preferences.conf.lock"};

bool isSomethingElse(const char* name)
{
    const QFileInfo file(SETTINGS_DIRECTORY + QLatin1Char('/') + QLatin1String(name));
    return file.exists() && !file.isFile();
}

// The settings of all users of the cell, in a folder beside their spec files.
class CellSettings {
public:
    CellSettings()
    {
        usePath();
        m_settings =
            std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::SystemScope,
                                        QStringLiteral("ScribonUI"), QStringLiteral("preferences"));
        usePath();
    }

    QSettings* operator->() { return m_settings.get(); }

private:
    // Below a device there is no file: what stands in a file's place and is none, a pipe say, would
    // be waited for.
    static QString directory()
    {
        const bool usable =
            std::none_of(SETTINGS_FILES.begin(), SETTINGS_FILES.end(), isSomethingElse);
        return usable ? SETTINGS_DIRECTORY : QStringLiteral("/dev/null");
    }

    static void usePath()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::SystemScope, directory());
    }

    std::unique_ptr<QSettings> m_settings;
};

constexpr int BOLD_FROM = 58;

QFont defaultFont()
{
    constexpr int SIZE = 12;
    constexpr int WEIGHT = 57;
    return {QStringLiteral("Spectral"), SIZE, WEIGHT, false};
}

}  // namespace

void MainWindow::readSettings()
{
    constexpr int DEFAULT_FONT_SIZE = 12;
    CellSettings settings;
    const QPoint place = settings->value(QStringLiteral("pos"), QPoint(200, 200)).toPoint();
    const QSize extent = settings->value(QStringLiteral("size"), QSize(400, 400)).toSize();
    myPrefs.syntaxColor =
        settings->value(QStringLiteral("syntaxfgcolor"), QStringLiteral("red")).value<QColor>();
    myPrefs.syntaxFont =
        settings->value(QStringLiteral("syntaxFont"), defaultFont()).value<QFont>();
    myPrefs.editorFont =
        settings->value(QStringLiteral("editorFont"), defaultFont()).value<QFont>();
    myPrefs.syntaxBold = settings->value(QStringLiteral("syntaxBold"), false).toBool();
    myPrefs.syntaxItalic = settings->value(QStringLiteral("syntaxItalic"), false).toBool();
    myPrefs.syntaxFontSize =
        settings->value(QStringLiteral("syntaxFontSize"), DEFAULT_FONT_SIZE).toInt();
    myPrefs.editorFontSize =
        settings->value(QStringLiteral("editorFontSize"), DEFAULT_FONT_SIZE).toInt();
    myPrefs.editorFont.setPointSize(myPrefs.editorFontSize);
    QApplication::setFont(myPrefs.editorFont);
    showEditorFont();
    resize(extent);
    move(place);
}

// Cells are painted in the editor font; the views must measure them in it too, or texts would be
// cut off. Headers keep the font of the window's content.
void MainWindow::showEditorFont()
{
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        QTreeView* const tree = view[static_cast<size_t>(tab)];
        tree->setFont(myPrefs.editorFont);
        tree->header()->setFont(centralwidget->font());
        fitColumns(tab);
    }
}

void MainWindow::preferences()
{
    auto* const dialog = new Preferences(this);
    dialog->setDefaults(myPrefs);
    if (dialog->exec() != QDialog::Accepted)
        return;
    dialog->getResults(&myPrefs);
    myPrefs.editorFont.setPointSize(myPrefs.editorFontSize);
    myPrefs.syntaxFont.setPointSize(myPrefs.syntaxFontSize);
    QApplication::setFont(myPrefs.editorFont);
    showEditorFont();
}

void MainWindow::writeSettings()
{
    CellSettings settings;
    const QFont& syntax = myPrefs.syntaxFont;
    settings->setValue(QStringLiteral("pos"), pos());
    settings->setValue(QStringLiteral("size"), size());
    settings->setValue(QStringLiteral("syntaxfgcolor"), myPrefs.syntaxColor);
    settings->setValue(QStringLiteral("syntaxFont"), syntax.family());
    settings->setValue(QStringLiteral("editorFont"), myPrefs.editorFont.family());
    settings->setValue(QStringLiteral("syntaxBold"), syntax.weight() >= BOLD_FROM);
    settings->setValue(QStringLiteral("syntaxItalic"), syntax.style() != QFont::StyleNormal);
    settings->setValue(QStringLiteral("syntaxFontSize"), syntax.pointSize());
    settings->setValue(QStringLiteral("editorFontSize"), myPrefs.editorFont.pointSize());
}
