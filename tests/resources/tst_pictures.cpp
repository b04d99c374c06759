// The pictures of the program: those in the Qt resources and the installed ones.

#include <QDirIterator>
#include <QFileInfo>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>
#include <algorithm>
#include <array>

namespace {

struct Picture {
    const char* file;
    int size;  // width and height, in pixels
};

// clang-format off
constexpr std::array<Picture, 18> IN_PROGRAM{{
    {":/resources/arrow-down.png",                 16},
    {":/resources/arrow_downo.png",                16},
    {":/resources/dialog-error.png",               16},
    {":/images/checkbox_checked.png",              13},
    {":/images/checkbox_checked_hover.png",        13},
    {":/images/checkbox_checked_pressed.png",      13},
    {":/images/checkbox_unchecked.png",            13},
    {":/images/checkbox_unchecked_hover.png",      13},
    {":/images/checkbox_unchecked_pressed.png",    13},
    {":/images/radiobutton_checked.png",           13},
    {":/images/radiobutton_checked_hover.png",     13},
    {":/images/radiobutton_checked_pressed.png",   13},
    {":/images/radiobutton_unchecked.png",         13},
    {":/images/radiobutton_unchecked_hover.png",   13},
    {":/images/radiobutton_unchecked_pressed.png", 13},
    {":/images/down_arrow.png",                     9},
    {":/images/up_arrow.png",                       9},
    {":/images/sizegrip.png",                      16},
}};

constexpr std::array<Picture, 6> BESIDE_PROGRAM{{
    {"crystal_project/22x22/actions/exit.png",       22},
    {"crystal_project/22x22/actions/filenew.png",    22},
    {"crystal_project/22x22/actions/fileopen.png",   22},
    {"crystal_project/22x22/actions/filesave.png",   22},
    {"crystal_project/22x22/actions/filesaveas.png", 22},
    {"marvane/icons/Configuration_48.png",           48},
}};
// clang-format on

const QString RESOURCES_DIR = QStringLiteral(SCRIBON_RESOURCES_DIR);
const QString ICONS_DIR = QStringLiteral(SCRIBON_ICONS_DIR);
const QString INSTALLED_DIR = QStringLiteral("/usr/local/share");

QString sourceOf(const QString& dir, const char* file)
{
    return QStringLiteral("%1/svg/%2.svg").arg(dir, QFileInfo(QLatin1String(file)).baseName());
}

// A test row for each picture: its path in the program, its SVG source and its size.
void addPictureRows()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("source");
    QTest::addColumn<int>("size");
    const auto addRow = [](const Picture& picture, const QString& file, const QString& dir) {
        QTest::newRow(picture.file) << file << sourceOf(dir, picture.file) << picture.size;
    };
    for (const Picture& picture : IN_PROGRAM)
        addRow(picture, QLatin1String(picture.file), RESOURCES_DIR);
    for (const Picture& picture : BESIDE_PROGRAM)
        addRow(picture, INSTALLED_DIR + QLatin1Char('/') + QLatin1String(picture.file), ICONS_DIR);
}

QStringList filesBelow(const QString& dir, const QString& pattern)
{
    QStringList files;
    QDirIterator iterator(dir, {pattern}, QDir::Files, QDirIterator::Subdirectories);
    while (iterator.hasNext())
        files.append(iterator.next());
    files.sort();
    return files;
}

template <size_t Count>
QStringList namesOf(const std::array<Picture, Count>& pictures, const QString& dir = QString())
{
    QStringList names;
    for (const Picture& picture : pictures)
        names.append(dir + QLatin1String(picture.file));
    names.sort();
    return names;
}

// The width and height in the SVG file; invalid if it is not an SVG file.
QSize drawnSize(const QString& svg)
{
    QFile file(svg);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader reader(&file);
    if (!reader.readNextStartElement() || reader.name() != QLatin1String("svg"))
        return {};
    const QXmlStreamAttributes attributes = reader.attributes();
    return {attributes.value(QLatin1String("width")).toInt(),
            attributes.value(QLatin1String("height")).toInt()};
}

QImage rendered(const QString& renderer, const QString& svg)
{
    QProcess process;
    process.start(renderer, {QStringLiteral("--format=png"), svg});
    process.waitForFinished();
    return QImage::fromData(process.readAllStandardOutput());
}

QByteArray premultipliedBytes(const QImage& image)
{
    const QImage plain = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    return {reinterpret_cast<const char*>(plain.constBits()),
            static_cast<int>(plain.sizeInBytes())};
}

// The maximum difference between two pictures of the same size, over all pixels and colours; 255 if
// the sizes differ.
int greatestDifference(const QImage& one, const QImage& other)
{
    const QByteArray left = premultipliedBytes(one);
    const QByteArray right = premultipliedBytes(other);
    if (one.size() != other.size())
        return 255;
    int greatest = 0;
    for (int i = 0; i < left.size(); ++i)
        greatest = std::max(greatest,
                            std::abs(static_cast<uchar>(left[i]) - static_cast<uchar>(right[i])));
    return greatest;
}

// The percentage of the picture that is not transparent.
int coverage(const QImage& image)
{
    int visible = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            visible += qAlpha(image.pixel(x, y)) > 127 ? 1 : 0;
    return 100 * visible / (image.width() * image.height());
}

}  // namespace

class tst_Pictures : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void pictureHasItsSize_data() { addPictureRows(); }
    void pictureHasItsSize();
    void pictureMatchesItsSvgSource_data() { addPictureRows(); }
    void pictureMatchesItsSvgSource();
    void programHasNoOtherResources();
    void everySvgHasAPicture();
    void picturesDiffer();
    void arrowHasTwoResourceNames_data();
    void arrowHasTwoResourceNames();
    void relativeIconPathsWorkFromTheSpecsDirectory();
    void onlyIconsAreInstalled();
};

void tst_Pictures::initTestCase()
{
    Q_INIT_RESOURCE(scriboneditor);
}

void tst_Pictures::pictureHasItsSize()
{
    QFETCH(QString, file);
    QFETCH(int, size);
    const QImage image(file);
    QCOMPARE(image.size(), QSize(size, size));
    QVERIFY(image.hasAlphaChannel());
    QVERIFY(coverage(image) >= 9);
    QVERIFY(coverage(image) < 100);
}

// Small differences are allowed, since renderers smooth edges differently.
void tst_Pictures::pictureMatchesItsSvgSource()
{
    QFETCH(QString, file);
    QFETCH(QString, source);
    QFETCH(int, size);
    QCOMPARE(drawnSize(source), QSize(size, size));
    const QString renderer = QStandardPaths::findExecutable(QStringLiteral("rsvg-convert"));
    if (renderer.isEmpty())
        QSKIP("needs rsvg-convert to draw it again");
    const int difference = greatestDifference(QImage(file), rendered(renderer, source));
    QVERIFY2(difference <= 16, "run packaging/icons/render and commit the result");
}

void tst_Pictures::programHasNoOtherResources()
{
    const QString pattern = QStringLiteral("*.png");
    QCOMPARE(filesBelow(QStringLiteral(":/images"), pattern) +
                 filesBelow(QStringLiteral(":/resources"), pattern),
             namesOf(IN_PROGRAM));
}

void tst_Pictures::everySvgHasAPicture()
{
    const QString pattern = QStringLiteral("*.svg");
    QCOMPARE(filesBelow(RESOURCES_DIR, pattern).size(), static_cast<int>(IN_PROGRAM.size()));
    QCOMPARE(filesBelow(ICONS_DIR, pattern).size(), static_cast<int>(BESIDE_PROGRAM.size()));
}

// Each state of a check box or radio button must look different.
void tst_Pictures::picturesDiffer()
{
    QSet<QByteArray> pictures;
    for (const Picture& picture : IN_PROGRAM)
        pictures.insert(premultipliedBytes(QImage(QLatin1String(picture.file))));
    QCOMPARE(pictures.size(), static_cast<int>(IN_PROGRAM.size()));
}

void tst_Pictures::arrowHasTwoResourceNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("with a slash after the colon") << QStringLiteral(":/resources/arrow-down.png");
    QTest::newRow("without a slash after the colon") << QStringLiteral(":resources/arrow-down.png");
}

void tst_Pictures::arrowHasTwoResourceNames()
{
    QFETCH(QString, name);
    const QImage arrow(RESOURCES_DIR + QStringLiteral("/arrow-down.png"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QImage::fromData(file.readAll()), arrow);
    QCOMPARE(QPixmap(name).size(), arrow.size());
    QCOMPARE(QIcon(name).availableSizes(), {arrow.size()});
    QCOMPARE(QIcon(name).pixmap(16).size(), arrow.size());
}

// The form has their paths relative to the working directory.
void tst_Pictures::relativeIconPathsWorkFromTheSpecsDirectory()
{
    QCOMPARE(QDir::currentPath(), QStringLiteral("/specs"));
    const QIcon save(
        QStringLiteral("../../../../usr/local/share/crystal_project/22x22/actions/filesave.png"));
    QCOMPARE(save.availableSizes(), {QSize(22, 22)});
    const QIcon window(
        QStringLiteral("../../../usr/local/share/marvane/icons/Configuration_48.png"));
    QCOMPARE(window.availableSizes(), {QSize(48, 48)});
}

void tst_Pictures::onlyIconsAreInstalled()
{
    const QTemporaryDir stage;
    QVERIFY(stage.isValid());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DESTDIR"), stage.path());
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(CMAKE_PROGRAM),
                  {QStringLiteral("--install"), QStringLiteral(SCRIBON_ICONS_BUILD_DIR)});
    QVERIFY(process.waitForFinished());
    QVERIFY2(process.exitCode() == 0, process.readAllStandardError().constData());
    QCOMPARE(filesBelow(stage.path(), QStringLiteral("*")),
             namesOf(BESIDE_PROGRAM, stage.path() + INSTALLED_DIR + QLatin1Char('/')));
}

#include "area_test.h"
AREA_TEST(QTEST_MAIN, tst_Pictures)
#include "tst_pictures.moc"
