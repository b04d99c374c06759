// Opens a file that is dropped on the window, also on a line edit in it. Anything else is refused,
// and the status bar tells why, but line edits take a text.
#pragma once

#include <QObject>
#include <QString>
#include <functional>

class QDropEvent;
class QMainWindow;
class QMimeData;

class FileDrop : public QObject {
    Q_OBJECT

public:
    using Open = std::function<void(const QString& fileName)>;

    // Owned by the window, which must have a status bar. The file is opened after the drop has
    // ended: until then the program that it comes from waits, and a message box would stop it.
    FileDrop(QMainWindow* window, Open open);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isMeant(QObject* watched, const QDropEvent& event) const;
    bool take(QObject* watched, QDropEvent* event);
    void refuse(const QString& reason);

    QMainWindow* m_window;
    Open m_open;
};
