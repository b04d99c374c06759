// The document that the tests of editing change: all keywords, all lists, comments and a statement
// of no keyword.
#pragma once

#include <QByteArray>

// As saving writes it, so that loading and saving it changes nothing.
QByteArray fullSpec();

// An asam3_specs file with the lists ECM0:0, ECM0:1 and ECM1:0.
QByteArray engineSpecs();
