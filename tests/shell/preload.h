// Libraries of the tests that are loaded into another program before its own.
#pragma once

#include <QProcessEnvironment>
#include <QString>

// Has a program that is started in this environment load the library first, in front of those that
// are preloaded already.
void addPreloaded(QProcessEnvironment* environment, const QString& library);
