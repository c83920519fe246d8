#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

/// The files that a command is about to write.
class OutputFiles {
    Q_DECLARE_TR_FUNCTIONS(OutputFiles)

public:
    /// The option as it is typed, "-o"; a name that was not given is left out.
    void add(const QString &option, const QString &fileName);

    /// Why they must not be written, empty where they may: two names of one place, or the name of a
    /// file that is read, be it an input itself or one of a project folder's.
    QString refusal(const QStringList &inputs) const;

private:
    struct File {
        QString option;
        QString name;
    };

    QString refusalOfOnePlace() const;

    QList<File> m_files;
};
