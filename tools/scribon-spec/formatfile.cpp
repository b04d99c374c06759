#include "formatfile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QSaveFile>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>

#include "check.h"

namespace {

constexpr mode_t MODE_BITS = 07777;

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

bool isReason(const Finding& finding)
{
    return finding.rule == Rule::LostText || finding.rule == Rule::ShiftedEntries ||
           finding.rule == Rule::SaveRefused;
}

// Changing the owner clears bits of the mode, so the mode comes last.
bool takeOver(int descriptor, const struct stat& original)
{
    struct stat own {};
    if (fstat(descriptor, &own) != 0)
        return false;
    if ((own.st_uid != original.st_uid || own.st_gid != original.st_gid) &&
        fchown(descriptor, original.st_uid, original.st_gid) != 0)
        return false;
    return fchmod(descriptor, original.st_mode & MODE_BITS) == 0;
}

}  // namespace

std::vector<Finding> reasonsNotToSave(const SpecFile& file)
{
    const FileReport report = checkFile(file, CheckOptions());
    std::vector<Finding> reasons;
    std::copy_if(report.findings.begin(), report.findings.end(), std::back_inserter(reasons),
                 isReason);
    return reasons;
}

QString replaceFile(const QString& name, const QByteArray& text)
{
    struct stat original {};
    if (stat(QFile::encodeName(name).constData(), &original) != 0)
        return systemError();
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    if (!takeOver(file.handle(), original))
        return QStringLiteral("its owner and mode cannot be kept: ") + systemError();
    file.write(text);
    return file.commit() ? QString() : file.errorString();
}
