// The counts of errors at the right of the status bar: of the current tab, and of the document.
#pragma once

#include <QString>
#include <QWidget>
#include <memory>

namespace Ui {
class StatusBarForm;
}

class StatusBarForm : public QWidget {
    Q_OBJECT

public:
    explicit StatusBarForm(QWidget* parent = nullptr);
    ~StatusBarForm() override;

    // The displays stop at 999.
    void setErrorCount(int count);
    void setTabErrCount(int count);

    void setTabErrLabel(const QString& text);

    // The tab that the label names; -1 until the first count of a loaded document.
    void setTabIndex(int index);
    int getTabIndex() const;

private:
    std::unique_ptr<Ui::StatusBarForm> ui;
    int tabIndex = -1;
};
