#include <KrMultilingual/ParameterText.h>

#include <KrMultilingual/LanguageManager.h>

#include <QtCore/QSharedData>
#include <QtCore/QVarLengthArray>

#include <algorithm>

namespace {

struct Entry {
    QString language;
    QString shortText;
    QString longText;

    friend bool operator==(const Entry &, const Entry &) = default;
};

/// Beside the reference count, one step away for a reader; few texts have more languages.
using Entries = QVarLengthArray<Entry, 2>;

} // namespace

class ParameterTextData : public QSharedData {
public:
    /// In the order in which the languages were first set; an entry has at least one of its two
    /// texts. A handful at most, so that searching costs less than a hash.
    Entries entries;
};

namespace {

QString textOf(const ParameterTextData *data, const QString &language, QString Entry::*form)
{
    if (!data)
        return {};

    const QString *fallback = nullptr;
    for (const Entry &entry : data->entries) {
        const QString &text = entry.*form;
        if (text.isEmpty())
            continue;
        if (entry.language == language)
            return text;
        if (!fallback)
            fallback = &text;
    }
    return fallback ? *fallback : QString();
}

ParameterText fromString(const QString &text)
{
    ParameterText result;
    result.setText(LanguageManager::activeLanguage(), text, text);
    return result;
}

QString toString(const ParameterText &text)
{
    return text.longText();
}

// At load, so that variants convert before anything of the library was called.
[[maybe_unused]] const bool convertersRegistered =
    QMetaType::registerConverter<QString, ParameterText>(fromString)
    && QMetaType::registerConverter<ParameterText, QString>(toString);

} // namespace

ParameterText::ParameterText() noexcept = default;
ParameterText::ParameterText(const ParameterText &other) noexcept = default;
ParameterText::ParameterText(ParameterText &&other) noexcept = default;
ParameterText &ParameterText::operator=(const ParameterText &other) noexcept = default;
ParameterText &ParameterText::operator=(ParameterText &&other) noexcept = default;
ParameterText::~ParameterText() = default;

bool ParameterText::isEmpty() const noexcept
{
    return !d;
}

QStringList ParameterText::languages() const
{
    QStringList result;
    if (!d)
        return result;
    result.reserve(d->entries.size());
    for (const Entry &entry : d->entries)
        result.append(entry.language);
    return result;
}

QString ParameterText::shortText() const
{
    return shortText(LanguageManager::activeLanguage());
}

QString ParameterText::longText() const
{
    return longText(LanguageManager::activeLanguage());
}

QString ParameterText::shortText(const QString &language) const
{
    return textOf(d.constData(), language, &Entry::shortText);
}

QString ParameterText::longText(const QString &language) const
{
    return textOf(d.constData(), language, &Entry::longText);
}

void ParameterText::setText(
    const QString &language, const QString &shortText, const QString &longText)
{
    const bool isRemoval = shortText.isEmpty() && longText.isEmpty();
    if (!d) {
        if (isRemoval)
            return;
        d = new ParameterTextData;
    }

    // Detaches: from here on the entries are this text's own.
    Entries &entries = d->entries;
    const auto entry = std::find_if(entries.begin(), entries.end(),
        [&language](const Entry &known) { return known.language == language; });
    if (isRemoval) {
        if (entry != entries.end())
            entries.erase(entry);
        if (entries.empty())
            d.reset();
        return;
    }
    if (entry == entries.end()) {
        entries.push_back({language, shortText, longText});
        return;
    }
    entry->shortText = shortText;
    entry->longText = longText;
}

bool operator==(const ParameterText &a, const ParameterText &b)
{
    if (a.d == b.d)
        return true;
    return a.d && b.d && a.d->entries == b.d->entries;
}
