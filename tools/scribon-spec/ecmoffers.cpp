#include "ecmoffers.h"

#include <QDir>
#include <QFile>

#include "asam3files.h"

namespace {

const auto SPEC_DIRECTORY = QStringLiteral("/specs");

}  // namespace

EcmOffers::EcmOffers(const QString& folder)
{
    const QString root = QDir(folder).absolutePath();
    QStringList onCell;
    for (const QString& path : asam3FilesBelow(root)) {
        for (const QString& list : ecmInstancesOf(QFile::encodeName(path))) {
            m_lists.insert(path + QLatin1Char(':') + list);
            onCell.append(SPEC_DIRECTORY + path.mid(root.size()) + QLatin1Char(':') + list);
        }
    }
    m_lists.unite({onCell.begin(), onCell.end()});
    m_nearest = NearestName(onCell);
}
