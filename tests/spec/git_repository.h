// A git repository for tests, in which scribon-spec is found.
#pragma once

#include <QTemporaryDir>

#include "spec_program.h"

// Settings of the machine and of the user do not matter in it.
class GitRepository {
public:
    static bool isGitInstalled();

    GitRepository();

    QString path() const { return m_folder.path(); }
    QString filePath(const QString& name) const { return m_folder.filePath(name); }

    // Makes the folders above the file, too.
    bool write(const QString& name, const QByteArray& text) const;

    SpecRun run(const QString& program, const QStringList& arguments) const;

    // Fails the test's program if git fails. Returns what git printed.
    QByteArray git(const QStringList& arguments) const;

    // What programs have left in the folder for temporary files.
    QStringList temporaryFiles() const;

private:
    QTemporaryDir m_folder;
    QTemporaryDir m_temporaryFiles;
    QProcessEnvironment m_environment;
};
