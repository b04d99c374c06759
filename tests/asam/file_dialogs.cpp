#include "file_dialogs.h"

#include <QApplication>
#include <QLineEdit>
#include <QTimer>

namespace {

constexpr int LOOKING_MS = 2;

}  // namespace

FileDialogs::FileDialogs()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    lookAgain();
}

// A timer of its own each time: an answer may open the next dialog and not return before that one
// is answered too.
void FileDialogs::lookAgain()
{
    QTimer::singleShot(LOOKING_MS, this, &FileDialogs::look);
}

void FileDialogs::look()
{
    lookAgain();
    auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || dialog == m_lastAnswered)
        return;
    m_lastAnswered = dialog;
    seen.append({dialog->windowTitle(), dialog->directory().absolutePath(), dialog->nameFilters(),
                 dialog->acceptMode(), dialog->parentWidget()});
    answer(dialog, m_answers.isEmpty() ? QString() : m_answers.dequeue());
}

// A name that the dialog does not take leaves it open: then the user gives up.
void FileDialogs::answer(QFileDialog* dialog, const QString& path)
{
    auto* const name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (name != nullptr && !path.isEmpty()) {
        name->setText(path);
        QMetaObject::invokeMethod(dialog, "accept");
    }
    if (dialog->isVisible())
        dialog->reject();
}
