// A file in memory only, for readers that take nothing but a path. Its path is valid as long as
// this lives.
#pragma once

#include <QByteArray>
#include <QString>

class MemoryFile {
public:
    enum Reader { ForThisProcess, ForChildrenToo };

    explicit MemoryFile(Reader reader);
    ~MemoryFile();
    Q_DISABLE_COPY(MemoryFile)

    // False, with errno, if there is no memory for it.
    bool write(const QByteArray& bytes);

    // The same in a child process.
    QString path() const;

private:
    int m_descriptor;
};
