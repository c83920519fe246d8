#pragma once

#include <QtCore/QExplicitlySharedDataPointer>
#include <QtCore/QSharedData>
#include <QtCore/QString>

/// Who or what changed a value, as a text. Thousands of values carry the same one, so it takes the
/// room of a pointer and is shared with the tag made last.
class ChangeTag {
public:
    ChangeTag() = default;
    /// Shares the text of the tag made last where it is the same.
    explicit ChangeTag(const QString &text) { share(text); }
    explicit ChangeTag(QLatin1StringView text) { share(text); }

    bool isEmpty() const { return !d; }
    QString text() const { return d ? d->text : QString(); }

private:
    template <typename Text>
    void share(const Text &text);

    struct Shared : QSharedData {
        explicit Shared(const QString &tagText)
            : text(tagText)
        {
        }
        QString text;
    };

    /// Null for an empty tag.
    QExplicitlySharedDataPointer<Shared> d;
};

Q_DECLARE_TYPEINFO(ChangeTag, Q_RELOCATABLE_TYPE);
