// The options of `check` that name a test cell, and what they name.
#pragma once

#include <QCommandLineParser>
#include <memory>
#include <optional>

#include "check.h"
#include "deskrun.h"
#include "ecmoffers.h"
#include "livecell.h"

class CellOptions {
public:
    static void addTo(QCommandLineParser* parser);

    // Joins the platform or starts one, and sets the options. False, with a complaint, if that
    // cannot be done. What the options point to lives as long as this object.
    bool read(const QCommandLineParser& parser, CheckOptions* options);

    // False, with a complaint, if the platform has stopped since.
    bool isStillGood() const;

private:
    bool joinPlatform(const QCommandLineParser& parser);
    bool startDesk(const QString& catalogue);
    bool readSpecs(const QString& folder);

    std::unique_ptr<DeskRun> m_desk;
    std::optional<LiveCell> m_cell;
    std::optional<EcmOffers> m_offers;
};
