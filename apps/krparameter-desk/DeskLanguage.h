#pragma once

#include <QtCore/QObject>
#include <QtCore/QTranslator>

#include <memory>

class InterfaceLanguage;

/// The language of the desk; can be changed while it runs.
class DeskLanguage : public QObject {
    Q_OBJECT

public:
    explicit DeskLanguage(QObject *parent = nullptr);
    ~DeskLanguage() override;

    QString language() const { return m_name; }
    /// **Refused** what is neither "de" nor "en". **Emits** changed where it differs.
    bool choose(const QString &language);

Q_SIGNALS:
    void changed();

private:
    QString m_name;
    std::unique_ptr<InterfaceLanguage> m_language;
    /// The toolkit's own texts, where they are installed.
    std::unique_ptr<QTranslator> m_toolkit;
};
