// Help: the toolkit's help viewer, a process of its own, on the editor's help collection.
#pragma once

#include <QCoreApplication>
#include <QProcess>
#include <memory>

class Assistant {
    Q_DECLARE_TR_FUNCTIONS(Assistant)

public:
    Assistant();
    // Closes the viewer if it is open, which takes up to three seconds.
    ~Assistant();

    // Shows the help in the viewer that is open, or opens one, which takes up to thirty seconds. A
    // collection that is not installed and a viewer that does not start are told in a box; an
    // environment without QT5DIR ends the program.
    void showDocumentation();

private:
    Q_DISABLE_COPY(Assistant)

    bool startAssistant();

    std::unique_ptr<QProcess> proc;  // null until help is first asked for
};
