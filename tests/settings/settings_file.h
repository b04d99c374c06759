// The settings file that all users of the machine share.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariant>

QString settingsPath();

// Puts a file of these lines, without a group, in its place.
bool writeSettingsLines(const QByteArray& lines);

// Its keys in alphabetical order, those in groups with the group's name and a slash before.
QStringList storedKeys();

// The value as the toolkit reads it; invalid when there is none.
QVariant stored(const QString& key);
