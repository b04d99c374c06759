// Base class of the end-to-end tests: a platform, an X display, empty directories, and a User for
// each test function.
#pragma once

#include <QTest>
#include <memory>

#include "desk_process.h"
#include "places.h"
#include "screen.h"
#include "user.h"

class EndToEndTest : public QObject {
    Q_OBJECT

protected:
    // Copies the example to /specs. False if that fails.
    static bool provide(const QString& name);
    static QByteArray example(const QString& name);
    // The example in the form that a save writes: no blank lines before comments of the keywords,
    // tabs between the values of a row, and all four lists.
    static QByteArray savedExample(const QString& name);
    // The lines of a file, so that a failed comparison shows the line that differs.
    static QList<QByteArray> linesOf(const QByteArray& text);
    bool start(const QStringList& arguments = {});

    DeskProcess m_desk;
    Screen m_screen;
    std::unique_ptr<User> m_user;

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
};
