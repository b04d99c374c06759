// Replaces a file by a QSaveFile: save_file FILE TEXT. Ends with 0 when that is told to have gone
// well.

#include <QFile>
#include <QSaveFile>

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    QSaveFile file(QFile::decodeName(argv[1]));
    // Qt 5 does not notice when the last of its buffer, which commit writes, does not get through.
    const bool isWritten =
        file.open(QIODevice::WriteOnly) && file.write(argv[2]) >= 0 && file.flush();
    return isWritten && file.commit() ? 0 : 1;
}
