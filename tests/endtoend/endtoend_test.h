// What the tests of the whole program share: a platform beside it, a screen, empty places, and a
// user for each test function.
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
    // Copies the example below /specs.
    static bool provide(const QString& name);
    static QByteArray example(const QString& name);
    // An example as a save lays it out: without blank lines before comments among the keywords,
    // with tabs between the values of a row, and with all four lists.
    static QByteArray savedExample(const QString& name);
    // The lines of a file, so that a comparison tells the one that differs.
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
