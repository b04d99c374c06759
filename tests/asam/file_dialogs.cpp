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

// Starts a new timer each time: an answer may open another dialog and return only after that one is
// closed.
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

// If the dialog does not accept the name and stays open, it is cancelled.
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
