#include "endtoend_test.h"

QByteArray EndToEndTest::example(const QString& name)
{
    return readFile(qEnvironmentVariable("SCRIBON_EXAMPLES") + QLatin1Char('/') + name);
}

QByteArray EndToEndTest::savedExample(const QString& name)
{
    QByteArray text = example(name);
    text.replace("\n\n#", "\n#").replace("30[sec] snapshot", "30[sec]\t\tsnapshot");
    for (const char* const list : {"@META_DATA\n", "@SCAN_LIST_AUX_USER\n", "@ECM_LIST\n"}) {
        if (!text.contains(list))
            text += QByteArray("\n") + list;
    }
    return text;
}

QList<QByteArray> EndToEndTest::linesOf(const QByteArray& text)
{
    return text.split('\n');
}

bool EndToEndTest::provide(const QString& name)
{
    return writeFile(QStringLiteral("/specs/") + name, example(name));
}

bool EndToEndTest::start(const QStringList& arguments)
{
    return m_user->start(m_screen, arguments);
}

void EndToEndTest::initTestCase()
{
    QVERIFY2(inPrivateNamespace(), "run this through scripts/in-namespace");
    emptyPlaces();
    QVERIFY(
        m_desk.start(qEnvironmentVariable("SCRIBON_EXAMPLES") + QStringLiteral("/catalogue.json")));
    QVERIFY(m_screen.start());
}

void EndToEndTest::init()
{
    emptyPlaces();
    m_user = std::make_unique<User>();
}

void EndToEndTest::cleanup()
{
    m_user.reset();
}
