// The error counters at the right of the status bar: of the current tab and of the document.
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

    // The spin boxes show at most 999.
    void setErrorCount(int count);
    void setTabErrCount(int count);

    void setTabErrLabel(const QString& text);

    // The index of the tab that the label names; -1 before the first one is set.
    void setTabIndex(int index);
    int getTabIndex() const;

    // Also watches the parts of the counters for clicks.
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    // The left mouse button has clicked on a counter or on its name.
    void tabErrorsClicked();
    void totalErrorsClicked();

private:
    void makeClickable(QWidget* part, const QString& toolTip);
    void watch(QWidget* part);

    std::unique_ptr<Ui::StatusBarForm> ui;
    int tabIndex = -1;
};
