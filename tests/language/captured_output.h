// Captures what code writes to a standard stream of the process.
#pragma once

#include <QByteArray>
#include <cstdio>
#include <functional>

// Redirects the stream (stdout or stderr) to a file while the code runs, and returns what was
// written.
QByteArray outputOf(std::FILE* stream, const std::function<void()>& code);
