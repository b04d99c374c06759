// A desk platform for the benchmarks.
#pragma once

// From now on, this process is a client of a platform that has this many real variables for general
// use, in no order of their names, every second one with an alias. One of as many that runs already
// is kept. Ends the process when it cannot be started.
void runPlatformOf(int variables);

// Before the end of main: the toolkit is needed for it.
void stopPlatform();
