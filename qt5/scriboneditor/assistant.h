// Shows the editor's help collection in Qt Assistant, which runs as a process of its own.
#pragma once

#include <QCoreApplication>
#include <QProcess>
#include <memory>

class Assistant {
    Q_DECLARE_TR_FUNCTIONS(Assistant)

public:
    Assistant();
    // Terminates the viewer if it runs, and waits for its end for up to three seconds.
    ~Assistant();

    // Shows the help in the running viewer, or starts one, which blocks for up to thirty seconds.
    // A message box tells if the collection is not installed or the viewer does not start. Without
    // QT5DIR in the environment the program ends.
    void showDocumentation();

private:
    Q_DISABLE_COPY(Assistant)

    // Starts the viewer unless it runs. False, after a message box, if it does not start.
    bool startAssistant();

    std::unique_ptr<QProcess> proc;  // null until the help is first shown
};
