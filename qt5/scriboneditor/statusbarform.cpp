#include "statusbarform.h"

#include "ui_statusbarform.h"

StatusBarForm::StatusBarForm(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::StatusBarForm>())
{
    ui->setupUi(this);
}

StatusBarForm::~StatusBarForm() = default;

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
