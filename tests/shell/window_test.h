// Base class of the tests of the window. For each test function: a running platform, without which
// the window's constructor ends the program; empty directories; and a new window with default
// settings.
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

    // Loads a document and then fails to load another.
    void failOverLoadedDocument();

    // Edits a cell like the delegate.
    void edit(int tab, int row, int column, const QString& text);

    DeskProcess m_desk;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<ModalDialogs> m_dialogs;
    const QFont m_applicationFont = QApplication::font();

protected Q_SLOTS:
    void init();
    void cleanup();

private Q_SLOTS:
    void initTestCase();
};
