// Validates the text of a line edit at each keystroke, without rejecting any. The result goes to
// the model as the error code of the edited cell, so that its mark and the error counters follow,
// and to screen readers as the line edit's description.
#pragma once

#include <QModelIndex>
#include <QObject>
#include <QString>

class QLineEdit;
class QValidator;

// All state is in dynamic properties of the line edits, so one charm can serve several of them.
class ValidationCharm : public QObject {
    Q_OBJECT

public:
    ValidationCharm();
    ~ValidationCharm() override;

    // Starts validating. The validator is not owned and must live as long as the line edit. The
    // cell may be removed meanwhile.
    void activateOn(QLineEdit* lineEdit, QValidator* validator, const QString& message,
                    const QModelIndex& index);
    void deactivateOn(QLineEdit* lineEdit);

private Q_SLOTS:
    void textEdited_(const QString& text);

private:
    static void removeLineFeeds(QLineEdit* lineEdit, const QString& text);
};
