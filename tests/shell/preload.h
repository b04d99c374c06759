// Preloading of the tests' libraries into other programs.
#pragma once

#include <QProcessEnvironment>
#include <QString>

// Adds the library to LD_PRELOAD, in front of those that are there already.
void addPreloaded(QProcessEnvironment* environment, const QString& library);
