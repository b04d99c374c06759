// The asam3_specs files below a folder, and the ECM lists that they offer.
#pragma once

#include <QByteArray>
#include <QStringList>

// The paths of the files asam3_specs.* of the folder, then of those of its subfolders. Symbolic
// links are not followed.
QStringList asam3FilesBelow(const QString& folder);

// As in "ECM0:1". Empty for a file that cannot be read or is not an asam3_specs file.
QStringList ecmInstancesOf(const QByteArray& fileName);
