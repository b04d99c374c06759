#include "messageoutput.h"

#include <cstdio>
#include <cstdlib>

namespace {

void printWithPlace(const char* kind, const QMessageLogContext& context, const QByteArray& message)
{
    // Null in messages from code that was compiled without QT_MESSAGELOGCONTEXT, as release builds
    // of Qt are.
    const char* const file = context.file == nullptr ? "" : context.file;
    const char* const function = context.function == nullptr ? "" : context.function;
    std::fprintf(stderr, "%s: %s (%s:%u, %s)\n", kind, message.constData(), file,
                 static_cast<unsigned>(context.line), function);
}

}  // namespace

void myMessageOutput(QtMsgType type, const QMessageLogContext& context, const QString& msg)
{
    const QByteArray message = msg.toLocal8Bit();
    switch (type) {
        case QtDebugMsg:
            std::fprintf(stderr, "Debug: %s \n", message.constData());
            break;
        case QtWarningMsg:
            break;
        case QtCriticalMsg:
            printWithPlace("Critical", context, message);
            break;
        case QtFatalMsg:
            printWithPlace("Fatal", context, message);
            std::abort();
        case QtInfoMsg:
            printWithPlace("Info", context, message);
            break;
    }
}
