#include "celloptions.h"

#include <QFileInfo>

#include "commands.h"

namespace {

const QString CATALOGUE = QStringLiteral("catalogue");
const QString LIVE = QStringLiteral("live");
const QString SPECS = QStringLiteral("specs");
const QString SPECS_OF_CELL = QStringLiteral("/specs");

bool isFolder(const QString& path)
{
    return QFileInfo(path).isDir();
}

}  // namespace

void CellOptions::addTo(QCommandLineParser* parser)
{
    parser->addOptions(
        {{CATALOGUE, QStringLiteral("Check names against a test cell: its catalogue as JSON."),
          QStringLiteral("CATALOGUE")},
         {LIVE, QStringLiteral("Check names against the platform that runs here.")},
         {SPECS,
          QStringLiteral("Check ECM lists against the asam3_specs files below this folder, which "
                         "stands for /specs. With --live it is /specs."),
          QStringLiteral("FOLDER")}});
}

bool CellOptions::read(const QCommandLineParser& parser, CheckOptions* options)
{
    if (parser.isSet(CATALOGUE) && parser.isSet(LIVE)) {
        complain(QStringLiteral("--catalogue and --live exclude each other"));
        return false;
    }
    if (!joinPlatform(parser))
        return false;
    const bool searchesCell = parser.isSet(LIVE) && isFolder(SPECS_OF_CELL);
    if (parser.isSet(SPECS) || searchesCell) {
        if (!readSpecs(parser.isSet(SPECS) ? parser.value(SPECS) : SPECS_OF_CELL))
            return false;
    }
    options->cell = m_cell ? &*m_cell : nullptr;
    options->offers = m_offers ? &*m_offers : nullptr;
    return true;
}

bool CellOptions::joinPlatform(const QCommandLineParser& parser)
{
    if (parser.isSet(CATALOGUE) && !startDesk(parser.value(CATALOGUE)))
        return false;
    if (m_desk == nullptr && !parser.isSet(LIVE))
        return true;
    if (!LiveCell::join()) {
        complain(QStringLiteral("no Marvane platform runs here"));
        return false;
    }
    m_cell.emplace();
    return true;
}

bool CellOptions::startDesk(const QString& catalogue)
{
    QString problem;
    m_desk = DeskRun::start(catalogue, &problem);
    if (m_desk == nullptr)
        complain(problem);
    return m_desk != nullptr;
}

bool CellOptions::readSpecs(const QString& folder)
{
    if (!isFolder(folder)) {
        complain(QStringLiteral("%1 is not a folder").arg(folder));
        return false;
    }
    m_offers.emplace(folder);
    return true;
}

bool CellOptions::isStillGood() const
{
    if (!m_cell || LiveCell::isRunning())
        return true;
    complain(QStringLiteral("the platform has stopped"));
    return false;
}
