// What the tests of the window share: a running platform, without which the window's constructor
// ends the program, empty places, and a fresh window with nobody else's document and font for each
// test function.
#pragma once

#include <QApplication>
#include <QTest>
#include <memory>

#include "desk_process.h"
#include "modal_dialogs.h"
#include "places.h"
#include "window_parts.h"

class WindowTest : public QObject {
    Q_OBJECT

protected:
    // Writes the text as /specs/good and loads it.
    void loadGoodFile(const QByteArray& text = goodSpec());

    // Leaves a window over a loaded document, after a load that failed.
    void failOverLoadedDocument();

    // An edit as a delegate makes it.
    void edit(int tab, int row, int column, const QString& text);

    DeskProcess m_desk;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<ModalDialogs> m_dialogs;
    const QFont m_applicationFont = QApplication::font();

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
};
