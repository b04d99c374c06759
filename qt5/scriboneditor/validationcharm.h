// Judges what the user types into a line edit, at each keystroke and without refusing any: the
// outcome goes to the cell under edit, whose mark and counters follow while the user still types.
#pragma once

#include <QModelIndex>
#include <QObject>
#include <QString>

class QLineEdit;
class QValidator;

// Holds no state: all of it lies on the line edits, so one charm can serve several of them.
class ValidationCharm : public QObject {
    Q_OBJECT

public:
    ValidationCharm();
    ~ValidationCharm() override;

    // From now on, what is typed is judged. The validator has to live as long as the line edit; a
    // cell that goes away is no longer marked.
    void activateOn(QLineEdit* lineEdit, QValidator* validator, const QString& message,
                    const QModelIndex& index);
    void deactivateOn(QLineEdit* lineEdit);

private Q_SLOTS:
    void textEdited_(const QString& text);

private:
    static void removeLineFeeds(QLineEdit* lineEdit, const QString& text);
};
