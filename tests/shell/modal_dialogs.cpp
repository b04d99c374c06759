#include "modal_dialogs.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

namespace {

constexpr int LOOKING_MS = 2;

// If the dialog does not accept the name, it is cancelled.
void typeAndAccept(QDialog* dialog, const QString& path)
{
    auto* const name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    auto* const buttons = dialog->findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
    if (name != nullptr && buttons != nullptr) {
        name->setText(path);
        for (const auto which : {QDialogButtonBox::Save, QDialogButtonBox::Open}) {
            if (QPushButton* const button = buttons->button(which))
                button->click();
        }
    }
    if (dialog->isVisible())
        dialog->reject();
}

void press(QDialog* dialog, QMessageBox::StandardButton which)
{
    auto* const box = qobject_cast<QMessageBox*>(dialog);
    QAbstractButton* const button = box == nullptr ? nullptr : box->button(which);
    if (button == nullptr)
        dialog->reject();
    else
        button->click();
}

}  // namespace

ModalDialogs::ModalDialogs()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    lookAgain();
}

void ModalDialogs::answerBox(QMessageBox::StandardButton button)
{
    m_answers.enqueue([button](QDialog* dialog) { press(dialog, button); });
}

void ModalDialogs::chooseFile(const QString& path)
{
    m_answers.enqueue([path](QDialog* dialog) { typeAndAccept(dialog, path); });
}

void ModalDialogs::cancel()
{
    m_answers.enqueue([](QDialog* dialog) { dialog->reject(); });
}

void ModalDialogs::answer(const Answer& answer)
{
    m_answers.enqueue(answer);
}

// Starts a new timer each time: an answer may open another dialog and return only after that one is
// closed.
void ModalDialogs::lookAgain()
{
    QTimer::singleShot(LOOKING_MS, this, &ModalDialogs::look);
}

void ModalDialogs::look()
{
    lookAgain();
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || dialog == m_lastAnswered)
        return;
    m_lastAnswered = dialog;
    remember(dialog);
    if (m_answers.isEmpty())
        dialog->reject();
    else
        m_answers.dequeue()(dialog);
}

void ModalDialogs::remember(QDialog* dialog)
{
    if (const auto* const box = qobject_cast<QMessageBox*>(dialog)) {
        boxes.append({box->windowTitle(), box->text(), box->icon(), box->standardButtons(),
                      box->parentWidget()});
    }
    if (const auto* const files = qobject_cast<QFileDialog*>(dialog)) {
        fileDialogs.append({files->windowTitle(), files->directory().absolutePath(),
                            files->nameFilters(), files->acceptMode(), files->windowModality(),
                            files->defaultSuffix(), files->parentWidget()});
    }
}
