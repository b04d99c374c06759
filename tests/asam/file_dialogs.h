// Answers file dialogs that open while another dialog is shown, and leaves that one alone. An
// unexpected file dialog is cancelled, so that the test fails instead of hanging.
#pragma once

#include <QFileDialog>
#include <QPointer>
#include <QQueue>
#include <QVector>

struct FileQuestion {
    QString title;
    QString directory;
    QStringList filters;
    QFileDialog::AcceptMode acceptMode;
    QWidget* parent;
};

class FileDialogs : public QObject {
    Q_OBJECT

public:
    FileDialogs();

    // Answers are used in the order of these calls.
    void choose(const QString& path) { m_answers.enqueue(path); }
    void cancel() { m_answers.enqueue(QString()); }

    QVector<FileQuestion> seen;

private:
    void lookAgain();
    void look();
    void answer(QFileDialog* dialog, const QString& path);

    QQueue<QString> m_answers;
    QPointer<QFileDialog> m_lastAnswered;
};
