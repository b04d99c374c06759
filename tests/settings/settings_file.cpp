#include "settings_file.h"

#include <QSettings>

#include "places.h"

QString settingsPath()
{
    return QStringLiteral("/specs/qt/ScribonUI/preferences.conf");
}

bool writeSettingsLines(const QByteArray& lines)
{
    return writeFile(settingsPath(), "[General]\n" + lines);
}

QStringList storedKeys()
{
    QStringList keys = QSettings(settingsPath(), QSettings::NativeFormat).allKeys();
    keys.sort();
    return keys;
}

QVariant stored(const QString& key)
{
    return QSettings(settingsPath(), QSettings::NativeFormat).value(key);
}
