// The ECM lists that the asam3_specs files below a folder offer.
#pragma once

#include <QSet>
#include <QString>

#include "nearestname.h"

class EcmOffers {
public:
    // The folder stands for /specs: its file asam3_specs.engine is /specs/asam3_specs.engine of the
    // test cell. A file can also be named by its own path.
    explicit EcmOffers(const QString& folder);

    // A list as spec files name it: path, control module and number, as in
    // "/specs/asam3_specs.engine:ECM0:0".
    bool has(const QString& list) const { return m_lists.contains(list); }

    // Empty if none is near.
    QString nearestTo(const QString& list) const { return m_nearest.nearestTo(list); }

private:
    QSet<QString> m_lists;
    NearestName m_nearest;
};
