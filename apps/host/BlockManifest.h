#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QMap>
#include <QtCore/QString>

#include <optional>

/// What a project folder noted about its blocks when it wrote them, so that a block that was cut
/// since is recognised.
class BlockManifest {
public:
    struct Entry {
        /// **Unit** bytes.
        qsizetype size = 0;
        qsizetype sectionCount = 0;

        friend bool operator==(const Entry &, const Entry &) = default;
    };

    static QString fileName();
    /// Takes only complete entries, and none from a text that was cut itself.
    static BlockManifest fromBytes(const QByteArray &bytes);
    QByteArray toBytes() const;

    /// Empty where nothing is noted about the block.
    std::optional<Entry> entry(const QString &blockName) const;
    QStringList blockNames() const { return m_entries.keys(); }
    void note(const QString &blockName, const QByteArray &block);
    void forget(const QString &blockName) { m_entries.remove(blockName); }

private:
    QMap<QString, Entry> m_entries;
};
