// Dialog to pick an ECM list from the asam3_specs files below /specs, and its extension number. It
// writes nothing to the model: the delegate reads its widgets once it is accepted.
#pragma once

#include <QDialog>
#include <QModelIndex>
#include <QString>
#include <memory>

#include "dialog_place.h"

class QComboBox;
class QSpinBox;

namespace Ui {
class asamspecs_select;
}

class asamspecs_select : public QDialog {
    Q_OBJECT

public:
    // For the cell at this index. The parent must not be null: the dialog is placed relative to it.
    asamspecs_select(const QModelIndex& index, QWidget* parent);
    ~asamspecs_select() override;

    QComboBox* fileComboBox() const;
    QComboBox* ecmComboBox() const;
    QSpinBox* extSpinBoxEdit() const;

    // The cell's present values; set them before the dialog is shown. The file is offered even if
    // it does not exist. The instance is the name of an ECM and an index, as in "ECM0:1".
    void setOrigExtNumber(const QString& number) { origExtNumber_ = number; }
    void setOrigFileName(const QString& fileName) { origFileName_ = fileName; }
    void setOrigEcmInstance(const QString& instance) { origEcmInstance_ = instance; }
    QString OrigFileName() const { return origFileName_; }
    QString OrigEcmInstance() const { return origEcmInstance_; }
    QString OrigExtNumber() const { return origExtNumber_; }

    int canceled = 0;  // 1 if the dialog was ended by the Cancel button

Q_SIGNALS:
    void closeDialog();
    void mapParent();

protected Q_SLOTS:
    // showEvent() and hideEvent() do not call the base class.
    void showEvent(QShowEvent* evt) override;
    void hideEvent(QHideEvent* evt) override;
    void fileEditTextChanged(const QString& changedText);
    void mapDialog();
    void ecmIndexChanged(const QString& text);
    void extNumberChanged(const QString& text);
    void cancel_asam();
    void accept_asam();

private:
    void connectAll();
    QString askForOtherFile();
    void selectFile(const QString& fileName);
    void offerEcmInstances();

    std::unique_ptr<Ui::asamspecs_select> ui;
    QModelIndex m_index;
    QString origFileName_;
    QString origEcmInstance_;
    QString origExtNumber_;
    QString extNumber;
    DialogPlace m_place{this};
};
