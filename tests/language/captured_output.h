// What a piece of code writes to one of the process's own streams.
#pragma once

#include <QByteArray>
#include <cstdio>
#include <functional>

// Runs the code with the stream (stdout or stderr) going to a file and returns what was written.
QByteArray outputOf(std::FILE* stream, const std::function<void()>& code);
