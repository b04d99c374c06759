#include "captured_output.h"

#include <unistd.h>

#include <QTemporaryFile>

QByteArray outputOf(std::FILE* stream, const std::function<void()>& code)
{
    QTemporaryFile file;
    if (!file.open())
        qFatal("no temporary file");
    const int descriptor = fileno(stream);
    std::fflush(stream);
    const int original = dup(descriptor);
    dup2(file.handle(), descriptor);
    code();
    std::fflush(stream);
    dup2(original, descriptor);
    close(original);
    file.seek(0);
    return file.readAll();
}
