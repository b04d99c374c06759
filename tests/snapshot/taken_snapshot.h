// Snapshots of the platform that this process has joined, and what marvane-desk says to them.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>

#include "catalogue.h"
#include "snapshot_catalogue.h"
#include "snapshot_platform.h"

struct TakenSnapshot {
    snapshot::Reading reading = snapshot::Reading::Done;
    QByteArray text;
    QStringList omissions;
};

TakenSnapshot textOf(const snapshot::Platform& platform);

// Reads the platform of the environment.
TakenSnapshot takeSnapshot();

// The text as marvane-desk reads it from a file. nullopt, with a warning of the test, if it refuses
// it.
std::optional<marvane::Catalogue> loadedCatalogue(const QByteArray& text);

// The same, and nullopt too if the text does not fit the schema of catalogue files.
std::optional<marvane::Catalogue> acceptedCatalogue(const QByteArray& text);

// All of a catalogue, a line for each thing in it, in an order of its own.
QByteArray described(const marvane::Catalogue& catalogue);
