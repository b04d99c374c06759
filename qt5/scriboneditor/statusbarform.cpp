#include "statusbarform.h"

#include <QLineEdit>
#include <QMouseEvent>

#include "ui_statusbarform.h"

StatusBarForm::StatusBarForm(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::StatusBarForm>())
{
    ui->setupUi(this);
    for (QWidget* const part :
         {static_cast<QWidget*>(ui->label), static_cast<QWidget*>(ui->tabErrs)})
        makeClickable(part, tr("Click to go to the next error of this tab"));
    for (QWidget* const part :
         {static_cast<QWidget*>(ui->label_2), static_cast<QWidget*>(ui->errors)})
        makeClickable(part, tr("Click to go to the next error of the file (F8)"));
}

StatusBarForm::~StatusBarForm() = default;

void StatusBarForm::makeClickable(QWidget* part, const QString& toolTip)
{
    part->setToolTip(toolTip);
    watch(part);
    // Most of a spin box is its line edit.
    for (QLineEdit* const line : part->findChildren<QLineEdit*>())
        watch(line);
}

void StatusBarForm::watch(QWidget* part)
{
    part->setCursor(Qt::PointingHandCursor);
    part->installEventFilter(this);
}

// A click is a release over the pressed widget, which gets both events.
bool StatusBarForm::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::MouseButtonRelease)
        return false;
    const auto* const mouse = static_cast<QMouseEvent*>(event);
    auto* const part = static_cast<QWidget*>(watched);
    if (mouse->button() != Qt::LeftButton || !part->rect().contains(mouse->pos()))
        return false;
    if (part == ui->label || part == ui->tabErrs || part->parent() == ui->tabErrs)
        Q_EMIT tabErrorsClicked();
    else
        Q_EMIT totalErrorsClicked();
    return false;
}

void StatusBarForm::setErrorCount(int count)
{
    ui->errors->setValue(count);
}

void StatusBarForm::setTabErrCount(int count)
{
    ui->tabErrs->setValue(count);
}

void StatusBarForm::setTabErrLabel(const QString& text)
{
    ui->label->setText(text);
}

void StatusBarForm::setTabIndex(int index)
{
    tabIndex = index;
}

int StatusBarForm::getTabIndex() const
{
    return tabIndex;
}
