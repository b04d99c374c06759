// The settings: what the window stores at its end and restores at its start.

#include <QApplication>
#include <QFileInfo>
#include <QHeaderView>
#include <QPoint>
#include <QSettings>
#include <QSize>
#include <algorithm>
#include <array>
#include <type_traits>

#include "mainwindow.h"
#include "preferences.h"
#include "tableview.h"

namespace {

const auto SETTINGS_DIRECTORY = QStringLiteral("/specs/qt");

// The files that QSettings opens there: the settings, those of the organization as a fallback, and
// the lock file.
constexpr std::array<const char*, 3> SETTINGS_FILES{"ScribonUI/preferences.conf", "ScribonUI.conf",
                                                    "ScribonUI/preferences.conf.lock"};

// Whether the name is taken by something other than a regular file.
bool isSomethingElse(const char* name)
{
    const QFileInfo file(SETTINGS_DIRECTORY + QLatin1Char('/') + QLatin1String(name));
    return file.exists() && !file.isFile();
}

// The settings in /specs/qt, which all users of the machine share.
class CellSettings {
public:
    CellSettings()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::SystemScope, directory());
        m_settings =
            std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::SystemScope,
                                        QStringLiteral("ScribonUI"), QStringLiteral("preferences"));
    }

    QSettings* operator->() { return m_settings.get(); }

private:
    // Opening a FIFO in place of a settings file would block. Then there are no settings: no file
    // can exist below /dev/null.
    static QString directory()
    {
        const bool usable =
            std::none_of(SETTINGS_FILES.begin(), SETTINGS_FILES.end(), isSomethingElse);
        return usable ? SETTINGS_DIRECTORY : QStringLiteral("/dev/null");
    }

    std::unique_ptr<QSettings> m_settings;
};

constexpr int BOLD_FROM = 58;
constexpr int DEFAULT_FONT_SIZE = 12;

QFont defaultFont()
{
    constexpr int WEIGHT = 57;
    return {QStringLiteral("Spectral"), DEFAULT_FONT_SIZE, WEIGHT, false};
}

// What the file holds.
struct StoredSettings {
    QPoint pos;
    QSize size;
    preference_results prefs;
};

// A key of the file. What is stored is not always what is read: a font is stored as its family, and
// weight, slant and size come from the fonts.
struct Setting {
    const char* key;
    QVariant (*fallback)();  // where the key is missing
    void (*read)(const QVariant& value, StoredSettings* settings);
    QVariant (*write)(const StoredSettings& settings);
};

template <auto member>
void readPreference(const QVariant& value, StoredSettings* settings)
{
    auto& preference = settings->prefs.*member;
    preference = value.value<std::decay_t<decltype(preference)>>();
}

using Prefs = preference_results;

// clang-format off
// In the order in which they are written.
constexpr std::array<Setting, 9> SETTINGS{{
    {"pos", [] { return QVariant(QPoint(200, 200)); },
     [](const QVariant& value, StoredSettings* to) { to->pos = value.toPoint(); },
     [](const StoredSettings& from) { return QVariant(from.pos); }},
    {"size", [] { return QVariant(QSize(400, 400)); },
     [](const QVariant& value, StoredSettings* to) { to->size = value.toSize(); },
     [](const StoredSettings& from) { return QVariant(from.size); }},
    {"syntaxfgcolor", [] { return QVariant(QStringLiteral("red")); }, readPreference<&Prefs::syntaxColor>,
     [](const StoredSettings& from) { return QVariant(from.prefs.syntaxColor); }},
    {"syntaxFont", [] { return QVariant(defaultFont()); }, readPreference<&Prefs::syntaxFont>,
     [](const StoredSettings& from) { return QVariant(from.prefs.syntaxFont.family()); }},
    {"editorFont", [] { return QVariant(defaultFont()); }, readPreference<&Prefs::editorFont>,
     [](const StoredSettings& from) { return QVariant(from.prefs.editorFont.family()); }},
    {"syntaxBold", [] { return QVariant(false); }, readPreference<&Prefs::syntaxBold>,
     [](const StoredSettings& from) { return QVariant(from.prefs.syntaxFont.weight() >= BOLD_FROM); }},
    {"syntaxItalic", [] { return QVariant(false); }, readPreference<&Prefs::syntaxItalic>,
     [](const StoredSettings& from) { return QVariant(from.prefs.syntaxFont.style() != QFont::StyleNormal); }},
    {"syntaxFontSize", [] { return QVariant(DEFAULT_FONT_SIZE); }, readPreference<&Prefs::syntaxFontSize>,
     [](const StoredSettings& from) { return QVariant(from.prefs.syntaxFont.pointSize()); }},
    {"editorFontSize", [] { return QVariant(DEFAULT_FONT_SIZE); }, readPreference<&Prefs::editorFontSize>,
     [](const StoredSettings& from) { return QVariant(from.prefs.editorFont.pointSize()); }},
}};
// clang-format on

}  // namespace

void MainWindow::readSettings()
{
    CellSettings settings;
    StoredSettings stored;
    for (const Setting& setting : SETTINGS)
        setting.read(settings->value(QLatin1String(setting.key), setting.fallback()), &stored);
    myPrefs = stored.prefs;
    myPrefs.editorFont.setPointSize(myPrefs.editorFontSize);
    QApplication::setFont(myPrefs.editorFont);
    showEditorFont();
    fitAllColumns();
    resize(stored.size);
    move(stored.pos);
}

// The delegate paints cells in the editor font, so the views must measure in it too, or texts would
// be cut off. Headers keep the font of the central widget. A new colour alone repaints nothing.
void MainWindow::showEditorFont()
{
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        QTreeView* const tree = view[static_cast<size_t>(tab)];
        tree->setFont(myPrefs.editorFont);
        tree->header()->setFont(centralwidget->font());
        tree->viewport()->update();
    }
}

void MainWindow::preferences()
{
    auto* const dialog = new Preferences(this);
    dialog->setDefaults(myPrefs);
    if (dialog->exec() != QDialog::Accepted)
        return;
    const QFont fontBefore = myPrefs.editorFont;
    dialog->getResults(&myPrefs);
    myPrefs.editorFont.setPointSize(myPrefs.editorFontSize);
    myPrefs.syntaxFont.setPointSize(myPrefs.syntaxFontSize);
    QApplication::setFont(myPrefs.editorFont);
    showEditorFont();
    if (myPrefs.editorFont != fontBefore)
        fitAllColumns();
}

void MainWindow::writeSettings()
{
    CellSettings settings;
    const StoredSettings stored{pos(), size(), myPrefs};
    for (const Setting& setting : SETTINGS)
        settings->setValue(QLatin1String(setting.key), setting.write(stored));
}
