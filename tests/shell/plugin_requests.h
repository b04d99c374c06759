// Base class of the Qt plugins that inspect the real program: they answer each line of standard
// input by a line of JSON on standard output, even while a menu or message box is open.
#pragma once

#include <unistd.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QObject>
#include <QSocketNotifier>
#include <QTextStream>

class PluginRequests : public QObject {
public:
    PluginRequests()
    {
        connect(&m_input, &QSocketNotifier::activated, this, &PluginRequests::read);
    }

protected:
    virtual QJsonValue answer(const QString& request) const = 0;

private:
    void read()
    {
        const QString request = m_requests.readLine();
        if (request.isNull()) {
            m_input.setEnabled(false);
            return;
        }
        const QJsonObject reply{{QStringLiteral("answer"), answer(request)}};
        QTextStream(stdout) << QJsonDocument(reply).toJson(QJsonDocument::Compact) << Qt::endl;
    }

    QSocketNotifier m_input{STDIN_FILENO, QSocketNotifier::Read};
    QTextStream m_requests{stdin, QIODevice::ReadOnly};
};
