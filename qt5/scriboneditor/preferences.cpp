#include "preferences.h"

#include <QColorDialog>
#include <QTimer>

#include "ui_preferences.h"

Preferences::Preferences(QWidget* parent)
    : QDialog(parent, Qt::Drawer), ui(std::make_unique<Ui::Preferences>())
{
    // Below a window with a style sheet, child widgets do not inherit the dialog's font. So the
    // form sets the font size by a style sheet.
    ui->setupUi(this);
    connect(ui->syntaxErrorColorButton, &QAbstractButton::pressed, this, &Preferences::setColor);
    connect(this, &Preferences::closeDialog, this, &QDialog::reject);
    connect(this, &Preferences::mapParent, this, &Preferences::mapDialog);
}

Preferences::~Preferences() = default;

void Preferences::setDefaults(const preference_results& prefs)
{
    ui->editorFontComboBox->setCurrentText(prefs.editorFont.family());
    ui->editorFontSize->setValue(prefs.editorFontSize);
    m_defaults.syntaxColor = prefs.syntaxColor;
    showColor();
    ui->ColorLabel->setAutoFillBackground(true);
}

void Preferences::getResults(preference_results* prefs) const
{
    prefs->editorFont = ui->editorFontComboBox->currentFont();
    prefs->editorFontSize = ui->editorFontSize->value();
    prefs->syntaxColor = m_defaults.syntaxColor;
}

void Preferences::showColor()
{
    ui->ColorLabel->setText(m_defaults.syntaxColor.name());
    ui->syntaxErrorColorButton->setAccessibleDescription(m_defaults.syntaxColor.name());
    ui->ColorLabel->setPalette(QPalette(m_defaults.syntaxColor));
}

void Preferences::setColor()
{
    const QColor color = QColorDialog::getColor(m_defaults.syntaxColor);
    if (!color.isValid())
        return;
    m_defaults.syntaxColor = color;
    showColor();
}

void Preferences::showEvent(QShowEvent* /*event*/)
{
    QTimer::singleShot(0, this, &Preferences::sendMapParent);
}

void Preferences::sendMapParent()
{
    Q_EMIT mapParent();
}

void Preferences::mapDialog()
{
    if (parentWidget() == nullptr)
        return;
    QRect place = geometry();
    place.moveTopLeft(parentWidget()->mapToGlobal(pos()));
    setGeometry(place);
}

void Preferences::hideEvent(QHideEvent* /*event*/)
{
    if (result() != QDialog::Accepted)
        Q_EMIT closeDialog();
}
