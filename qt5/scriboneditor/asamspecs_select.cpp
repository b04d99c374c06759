#include "asamspecs_select.h"

#include <QFileDialog>
#include <QFontMetrics>
#include <QLineEdit>
#include <QShowEvent>
#include <QStringList>

#include "asam3files.h"
#include "ui_asamspecs_select.h"

namespace {

const auto SPEC_DIRECTORY = QStringLiteral("/specs");
const auto SPEC_FILTER = QStringLiteral("asam3_specs*;;*");
const auto OTHER_FILE = QStringLiteral("Other");

// The spin box is always 40 pixels wide. So that two digits fit, the margins of its line edit are
// removed, and its font is reduced if necessary.
void fitTwoDigits(QSpinBox* box)
{
    constexpr int TEXT_WIDTH = 22;
    constexpr int INNER_MARGIN = 2;
    if (auto* const line = box->findChild<QLineEdit*>())
        line->setTextMargins(-INNER_MARGIN, 0, -INNER_MARGIN, 0);
    QFont font = box->font();
    while (font.pointSize() > 1 &&
           QFontMetrics(font).horizontalAdvance(QStringLiteral("99")) > TEXT_WIDTH)
        font.setPointSize(font.pointSize() - 1);
    box->setFont(font);
}

}  // namespace

// ---- Construction ------------------------------------------------------------------------------

asamspecs_select::asamspecs_select(const QModelIndex& index, QWidget* parent)
    : QDialog(parent, Qt::Drawer), ui(std::make_unique<Ui::asamspecs_select>()), m_index(index)
{
    ui->setupUi(this);
    // The view sets the focus on its editor; the file combo box takes it.
    setFocusProxy(ui->specfiles);
    fitTwoDigits(ui->extensionNumber);
    connectAll();
}

asamspecs_select::~asamspecs_select() = default;

void asamspecs_select::connectAll()
{
    connect(ui->Ok_button, &QPushButton::clicked, this, &asamspecs_select::accept_asam);
    connect(ui->cancel_button, &QPushButton::clicked, this, &asamspecs_select::cancel_asam);
    connect(this, &asamspecs_select::closeDialog, this, &QDialog::reject);
    connect(this, &asamspecs_select::mapParent, this, &asamspecs_select::mapDialog);
    connect(this, &asamspecs_select::mapParent, this, [this] { m_place.keepOnScreen(); });
    connect(ui->specfiles, &QComboBox::currentTextChanged, this,
            &asamspecs_select::fileEditTextChanged);
    connect(ui->ecmInstance, qOverload<int>(&QComboBox::currentIndexChanged), this,
            [this](int index) { ecmIndexChanged(ui->ecmInstance->itemText(index)); });
}

// ---- Accessors ---------------------------------------------------------------------------------

QComboBox* asamspecs_select::fileComboBox() const
{
    return ui->specfiles;
}

QComboBox* asamspecs_select::ecmComboBox() const
{
    return ui->ecmInstance;
}

QSpinBox* asamspecs_select::extSpinBoxEdit() const
{
    return ui->extensionNumber;
}

// ---- Showing and hiding ------------------------------------------------------------------------

// A spontaneous event comes from the window system, such as when the window is restored: what the
// user has picked must stay.
void asamspecs_select::showEvent(QShowEvent* evt)
{
    if (evt->spontaneous())
        return;
    m_place.rememberFrame();
    QStringList files = asam3FilesBelow(SPEC_DIRECTORY);
    if (!origFileName_.isEmpty())
        files.append(origFileName_);
    files.removeDuplicates();
    files.append(OTHER_FILE);
    ui->specfiles->clear();
    ui->specfiles->insertItems(0, files);
    fileEditTextChanged(origFileName_);
    Q_EMIT mapParent();
}

void asamspecs_select::hideEvent(QHideEvent* /*evt*/)
{
    if (result() != QDialog::Accepted && canceled != 0)
        Q_EMIT closeDialog();
}

void asamspecs_select::mapDialog()
{
    constexpr int BELOW_CELL = 80;
    m_place.moveToCell(BELOW_CELL);
}

void asamspecs_select::accept_asam()
{
    canceled = 0;
    accept();
}

void asamspecs_select::cancel_asam()
{
    canceled = 1;
    reject();
}

// ---- What the user picks -----------------------------------------------------------------------

// Setting the current file calls this slot again, which then changes nothing.
void asamspecs_select::fileEditTextChanged(const QString& changedText)
{
    selectFile(changedText == OTHER_FILE ? askForOtherFile() : changedText);
    offerEcmInstances();
}

// Empty if the user cancelled.
QString asamspecs_select::askForOtherFile()
{
    QString fileName =
        QFileDialog::getOpenFileName(this, tr("Open file"), SPEC_DIRECTORY, SPEC_FILTER);
    if (!fileName.isEmpty()) {
        ui->specfiles->insertItem(ui->specfiles->count(), fileName);
        ui->specfiles->setEditText(fileName);
    }
    return fileName;
}

void asamspecs_select::selectFile(const QString& fileName)
{
    const int index = ui->specfiles->findText(fileName);
    if (index != -1) {
        ui->specfiles->setCurrentIndex(index);
    } else {
        ui->specfiles->setCurrentText(origFileName_);
        ui->specfiles->setEditText(origFileName_);
    }
}

// A file without ECM instances leaves the items of the file before.
void asamspecs_select::offerEcmInstances()
{
    const QStringList ecmStrList = ecmInstancesOf(ui->specfiles->currentText().toLatin1());
    if (ecmStrList.isEmpty())
        return;
    ui->ecmInstance->clear();
    ui->ecmInstance->insertItems(0, ecmStrList);
    ecmIndexChanged(origEcmInstance_);
}

void asamspecs_select::ecmIndexChanged(const QString& text)
{
    const int index = ui->ecmInstance->findText(text);
    if (index != -1)
        ui->ecmInstance->setCurrentIndex(index);
    else
        ui->ecmInstance->setEditText(origEcmInstance_);
}

void asamspecs_select::extNumberChanged(const QString& text)
{
    if (!text.isEmpty())
        extNumber = text;
}
