// Standing notices in a status bar, for as long as what they tell holds. They wait for the bar's
// messages and come back after them. The bar grows with them, since they name files and folders
// that one line beside the counters has no room for.
#pragma once

#include <QObject>
#include <QString>
#include <array>

class QLabel;
class QStatusBar;

class StatusNotices : public QObject {
    Q_OBJECT

public:
    // In the order in which they are shown, a line or more each.
    enum Kind { FileNotice, NoCopyNotice, AbandonedNotice, KIND_COUNT };

    // The status bar owns the label "noticeLabel" and must outlive the object.
    explicit StatusNotices(QStatusBar* statusBar);

    // An empty text takes the notice away.
    void set(Kind kind, const QString& text);

private:
    void makeRoomForMessage(const QString& message);

    QStatusBar* m_statusBar;
    QLabel* m_label;
    std::array<QString, KIND_COUNT> m_texts;
};
