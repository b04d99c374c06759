// Rows that a save writes so that the next load must find them again.
#pragma once

class SpecFile;

// Whether each row has a form that surely comes through a save and a load unchanged: a known
// keyword with a value of its kind, an entry with the words that its list takes, a comment alone.
// Asks the texts only, which takes a fraction of the time of a save and a load. False says nothing.
bool hasRegularRows(const SpecFile& file);
