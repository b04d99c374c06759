// Tells in the middle of the tab page, in grey, that no document is open and how to open one. It
// stands over the table and lets the mouse through.
#pragma once

#include <QByteArray>
#include <QLabel>
#include <QString>
#include <QStringList>

class QTabWidget;

// Why a file with this text is not a spec file, as a sentence.
QString reasonOfRefusal(const QByteArray& text);

class PageNotice : public QLabel {
    Q_OBJECT

public:
    // Hidden at first. Owned by the tab widget, which must have its pages.
    explicit PageNotice(QTabWidget* tabs);

    // Shows the title and the reason, if there are any, above what to do. Long names are cut.
    void tell(const QString& title, const QString& reason);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QStringList lines(int width) const;
    void place();

    QTabWidget* m_tabs;
    QString m_title;
    QString m_reason;
};
