#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

/// The place that a file name leads to.
class FilePlace {
    Q_DECLARE_TR_FUNCTIONS(FilePlace)

public:
    /// Follows links, so that they stay ones when the file is replaced. Two names of one place give
    /// the same text, also where there is no file yet.
    explicit FilePlace(const QString &fileName);

    /// Where links lead back to themselves empty; error() then says so.
    QString path() const { return m_path; }
    QString error() const;
    friend bool operator==(const FilePlace &a, const FilePlace &b) = default;

private:
    QString m_path;
};
