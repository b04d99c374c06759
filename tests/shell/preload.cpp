#include "preload.h"

#include <QFileInfo>

namespace {

void prepend(QProcessEnvironment* environment, const QString& variable, const QString& entry)
{
    const QString others = environment->value(variable);
    environment->insert(variable, others.isEmpty() ? entry : entry + QLatin1Char(':') + others);
}

}  // namespace

// Adds the file name, and the directory to LD_LIBRARY_PATH: LD_PRELOAD is split at blanks, too,
// which the build's path may have.
void addPreloaded(QProcessEnvironment* environment, const QString& library)
{
    const QFileInfo file(library);
    prepend(environment, QStringLiteral("LD_PRELOAD"), file.fileName());
    prepend(environment, QStringLiteral("LD_LIBRARY_PATH"), file.absolutePath());
    prepend(environment, QStringLiteral("ASAN_OPTIONS"),
            QStringLiteral("verify_asan_link_order=0"));
}
