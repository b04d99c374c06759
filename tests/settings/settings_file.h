// The settings file in /specs/qt, which all users of the machine share.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariant>

QString settingsPath();

// Writes a settings file with these lines, without a group. False if that fails.
bool writeSettingsLines(const QByteArray& lines);

// All keys in alphabetical order; keys in groups as "group/key".
QStringList storedKeys();

// The value as QSettings reads it; invalid if there is none.
QVariant stored(const QString& key);
