// Picks one of the ECM lists that the asam3_specs files below /specs offer, and its extension
// number. It writes nothing: who opened it reads its widgets once it is accepted.
#pragma once

#include <QDialog>
#include <QModelIndex>
#include <QString>
#include <memory>

class QComboBox;
class QSpinBox;

namespace Ui {
class asamspecs_select;
}

class asamspecs_select : public QDialog {
    Q_OBJECT

public:
    // For the cell of this index. The dialog shows below its place in the parent, which it needs.
    asamspecs_select(const QModelIndex& index, QWidget* parent);
    ~asamspecs_select() override;

    QComboBox* fileComboBox() const;
    QComboBox* ecmComboBox() const;
    QSpinBox* extSpinBoxEdit() const;

    // What the cell had, to be told before the dialog shows. The file is on offer then even if it
    // is not there. The instance is the name of an ECM and an index, with a colon between them.
    void setOrigExtNumber(const QString& number) { origExtNumber_ = number; }
    void setOrigFileName(const QString& fileName) { origFileName_ = fileName; }
    void setOrigEcmInstance(const QString& instance) { origEcmInstance_ = instance; }
    QString OrigFileName() const { return origFileName_; }
    QString OrigEcmInstance() const { return origEcmInstance_; }
    QString OrigExtNumber() const { return origExtNumber_; }

    int canceled = 0;  // 1 when the Cancel button ended the dialog

Q_SIGNALS:
    void closeDialog();
    void mapParent();

protected Q_SLOTS:
    // These two without the base class's part.
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
};
