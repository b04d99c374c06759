#include "validationcharm.h"

#include <QLineEdit>
#include <QPersistentModelIndex>
#include <QValidator>
#include <QVariant>

#include "editor_types.h"
#include "treemodel.h"

namespace {

constexpr auto MODEL_INDEX = "modelIndex";
constexpr auto ERROR_TIP = "errortip";
constexpr auto PREVIOUS_TEXT = "previousText";
constexpr auto VALIDATOR = "validator";

}  // namespace

ValidationCharm::ValidationCharm() : QObject(nullptr)
{
    qRegisterMetaType<QValidator*>("QValidator *");
}

ValidationCharm::~ValidationCharm() = default;

// A persistent index, since rows may be inserted or removed while a dialog is open.
void ValidationCharm::activateOn(QLineEdit* lineEdit, QValidator* validator, const QString& message,
                                 const QModelIndex& index)
{
    lineEdit->setProperty(MODEL_INDEX, QPersistentModelIndex(index));
    lineEdit->setProperty(ERROR_TIP, message);
    lineEdit->setProperty(PREVIOUS_TEXT, lineEdit->text());
    lineEdit->setProperty(VALIDATOR, QVariant::fromValue(validator));
    connect(lineEdit, &QLineEdit::textEdited, this, &ValidationCharm::textEdited_);
}

void ValidationCharm::deactivateOn(QLineEdit* lineEdit)
{
    disconnect(lineEdit, &QLineEdit::textEdited, this, &ValidationCharm::textEdited_);
    for (const char* const property : {MODEL_INDEX, ERROR_TIP, PREVIOUS_TEXT, VALIDATOR})
        lineEdit->setProperty(property, QVariant());
}

void ValidationCharm::textEdited_(const QString& /*text*/)
{
    auto* const lineEdit = qobject_cast<QLineEdit*>(sender());
    if (lineEdit == nullptr)
        return;
    const QModelIndex tIndex = lineEdit->property(MODEL_INDEX).toModelIndex();
    const auto* const validator = lineEdit->property(VALIDATOR).value<QValidator*>();
    const auto* const tmpModel = qobject_cast<const TreeModel*>(tIndex.model());
    if (validator == nullptr || tmpModel == nullptr)
        return;
    QString validatorText = lineEdit->text();
    int validatorPosition = 0;
    if (validator->validate(validatorText, validatorPosition) == QValidator::Acceptable) {
        tmpModel->setErrorCode(tIndex, DE_NOERROR);
        lineEdit->setAccessibleDescription(QString());
        lineEdit->setProperty(PREVIOUS_TEXT, lineEdit->text());
    } else {
        removeLineFeeds(lineEdit, validatorText.trimmed());
        tmpModel->setErrorCode(tIndex, DE_SYNTAX_ERR);
        lineEdit->setAccessibleDescription(lineEdit->property(ERROR_TIP).toString());
    }
}

// Sets the text without line feeds. Leaves the line edit alone if there are none.
void ValidationCharm::removeLineFeeds(QLineEdit* lineEdit, const QString& text)
{
    if (text.contains(QLatin1Char('\n')))
        lineEdit->setText(QString(text).remove(QLatin1Char('\n')));
}
