// A desk platform of this process alone, which runs as long as this object and the process.
#pragma once

#include <QString>
#include <memory>

class QProcess;

class DeskRun {
public:
    // Starts marvane-desk with the catalogue and waits until it can be joined. The environment
    // names it from then on. Null, with the reason in *problem, if that fails, as it does with the
    // library of a platform that heeds no name.
    static std::unique_ptr<DeskRun> start(const QString& catalogue, QString* problem);

    ~DeskRun();

private:
    explicit DeskRun(std::unique_ptr<QProcess> process);
    Q_DISABLE_COPY(DeskRun)

    std::unique_ptr<QProcess> m_process;
};
