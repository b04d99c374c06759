// Standing notices in a status bar, for as long as what they tell holds. They wait for other
// messages and come back after them.
#pragma once

#include <QObject>
#include <QString>
#include <array>

class QStatusBar;

class StatusNotices : public QObject {
    Q_OBJECT

public:
    // In the order of importance: the first one that there is, is shown; the tool tip has all.
    enum Kind { FileNotice, NoCopyNotice, AbandonedNotice, KIND_COUNT };

    // The status bar must outlive the object.
    explicit StatusNotices(QStatusBar* statusBar);

    // An empty text takes the notice away.
    void set(Kind kind, const QString& text);

private:
    QString mostImportant() const;
    void update();

    QStatusBar* m_statusBar;
    std::array<QString, KIND_COUNT> m_texts;
    QString m_shown;
};
