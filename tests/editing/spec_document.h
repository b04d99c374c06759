// The document of the tests of editing: all keywords, all lists, comments and an unknown keyword.
#pragma once

#include <QByteArray>

// In the form that a save writes, so that loading and saving does not change it.
QByteArray fullSpec();

// An asam3_specs file with the lists ECM0:0, ECM0:1 and ECM1:0.
QByteArray engineSpecs();
