// A desk platform for the benchmarks.
#pragma once

// Makes this process a client of a platform with this many real variables for general use, not
// sorted by name, every second one with an alias, and with 200 channel keywords. A running platform
// with as many variables is reused. Ends the process if the platform cannot be started.
void runPlatformOf(int variables);

// Must be called before the end of main, since it uses Qt.
void stopPlatform();
