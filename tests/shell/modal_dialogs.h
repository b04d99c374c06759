// Answers modal dialogs that the tested code opens, and records their texts. An unexpected dialog
// is cancelled, so that the test fails instead of hanging.
#pragma once

#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <QQueue>
#include <QVector>
#include <functional>

struct SeenBox {
    QString title;
    QString text;
    QMessageBox::Icon icon;
    QMessageBox::StandardButtons buttons;
    QWidget* parent;
};

struct SeenFileDialog {
    QString title;
    QString directory;
    QStringList filters;
    QFileDialog::AcceptMode acceptMode;
    Qt::WindowModality modality;
    QString defaultSuffix;
    QWidget* parent;
};

class ModalDialogs : public QObject {
    Q_OBJECT

public:
    using Answer = std::function<void(QDialog*)>;

    ModalDialogs();

    // Answers are used in the order of these calls.
    void answerBox(QMessageBox::StandardButton button);
    void chooseFile(const QString& path);
    void cancel();
    // The answer must close the dialog.
    void answer(const Answer& answer);

    QVector<SeenBox> boxes;
    QVector<SeenFileDialog> fileDialogs;

private:
    void lookAgain();
    void look();
    void remember(QDialog* dialog);

    QQueue<Answer> m_answers;
    QPointer<QWidget> m_lastAnswered;
};
