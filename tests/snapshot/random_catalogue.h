// Catalogue files of all shapes, from a number.
#pragma once

#include <QByteArray>
#include <cstdint>

QByteArray randomCatalogue(uint32_t seed);
