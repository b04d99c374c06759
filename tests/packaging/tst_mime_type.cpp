// Desktops recognize a spec file by its name or contents.

#include <QDir>
#include <QFile>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>

namespace {

const QString SPEC_FILE = QStringLiteral("text/x-scribon-spec");

QString examplesDir()
{
    return qEnvironmentVariable("SCRIBON_EXAMPLES");
}

// Registers the MIME type in XDG_DATA_HOME, which belongs to the test.
bool registerMimeType()
{
    const QString mimeDir = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                            QStringLiteral("/mime");
    return QDir().mkpath(mimeDir + QStringLiteral("/packages")) &&
           QFile::copy(QStringLiteral(SCRIBON_MIME_FILE),
                       mimeDir + QStringLiteral("/packages/scriboneditor.xml")) &&
           QProcess::execute(QStringLiteral("update-mime-database"), {mimeDir}) == 0;
}

}  // namespace

class tst_MimeType : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(registerMimeType()); }
    void mimeTypeIsAText();
    void mimeTypeOfExamplesIsRecognizedByName_data();
    void mimeTypeOfExamplesIsRecognizedByName();
    void mimeTypeIsRecognizedByContent_data();
    void mimeTypeIsRecognizedByContent();
};

void tst_MimeType::mimeTypeIsAText()
{
    const QMimeType type = QMimeDatabase().mimeTypeForName(SPEC_FILE);
    QVERIFY(type.isValid());
    QVERIFY(type.inherits(QStringLiteral("text/plain")));
    QCOMPARE(type.comment(), QStringLiteral("Scribon spec file"));
    QCOMPARE(type.iconName(), QStringLiteral("scriboneditor"));
}

void tst_MimeType::mimeTypeOfExamplesIsRecognizedByName_data()
{
    QTest::addColumn<QString>("file");
    const QStringList names = QDir(examplesDir()).entryList({QStringLiteral("scrib_*")});
    QVERIFY(!names.isEmpty());
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << examplesDir() + QLatin1Char('/') + name;
}

void tst_MimeType::mimeTypeOfExamplesIsRecognizedByName()
{
    QFETCH(QString, file);
    QCOMPARE(QMimeDatabase().mimeTypeForFile(file, QMimeDatabase::MatchExtension).name(),
             SPEC_FILE);
}

void tst_MimeType::mimeTypeIsRecognizedByContent_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("type");
    const QString plainText = QStringLiteral("text/plain");
    QTest::newRow("the statement that every spec file has")
        << QByteArray("@SCRIBON\nname\n") << SPEC_FILE;
    QTest::newRow("comments and other statements before it")
        << "# " + QByteArray(2000, 'x') + "\n@SCAN_INTERVAL\n1[sec]\n@SCRIBON\nname\n"
        << SPEC_FILE;
    QTest::newRow("the name without the at sign") << QByteArray("SCRIBON\nname\n") << plainText;
    QTest::newRow("any other text") << QByteArray("@SCAN_INTERVAL\n1[sec]\n") << plainText;
}

void tst_MimeType::mimeTypeIsRecognizedByContent()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, type);
    QCOMPARE(QMimeDatabase().mimeTypeForData(content).name(), type);
}

QTEST_GUILESS_MAIN(tst_MimeType)
#include "tst_mime_type.moc"
