// Usage: save_file FILE TEXT. Replaces the file by QSaveFile. The exit status is 0 if commit()
// reports success.

#include <QFile>
#include <QSaveFile>

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    QSaveFile file(QFile::decodeName(argv[1]));
    // In Qt 5, commit() ignores a failure to write the rest of its buffer.
    const bool isWritten =
        file.open(QIODevice::WriteOnly) && file.write(argv[2]) >= 0 && file.flush();
    return isWritten && file.commit() ? 0 : 1;
}
