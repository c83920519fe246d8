#include "apps/krparameter-desk/DeskOptions.h"

#include "apps/krparameter-desk/SelectorBar.h"

#include <KrMultilingual/LanguageManager.h>

#include <QtCore/QCommandLineParser>
#include <QtCore/QRegularExpression>

#include <algorithm>
#include <string_view>

namespace {

constexpr int GreatestSide = 8192;

std::optional<QSize> sizeOf(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("^([0-9]{2,4})x([0-9]{2,4})$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return {};
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    return size.width() <= GreatestSide && size.height() <= GreatestSide ? std::optional(size)
                                                                         : std::nullopt;
}

std::optional<DeskOptions::Input> inputOf(const QString &text)
{
    const qsizetype equals = text.indexOf(QLatin1Char('='));
    if (equals <= 0)
        return {};
    return DeskOptions::Input(text.first(equals), text.sliced(equals + 1));
}

bool isLanguage(const QString &language)
{
    return LanguageManager::languageList().contains(language);
}

/// The names of the options, and the reading of those that have a form.
class Parser {
    Q_DECLARE_TR_FUNCTIONS(DeskOptions)

public:
    Parser();

    bool parse(const QStringList &words) { return m_parser.parse(words); }
    const QCommandLineParser &parser() const { return m_parser; }
    /// Empty where all is well.
    QString readInto(DeskOptions &options) const;

private:
    QString readView(DeskOptions &options) const;
    QString readInputs(DeskOptions &options) const;
    bool isSet(const char *name) const { return m_parser.isSet(QLatin1String(name)); }
    QString value(const char *name) const { return m_parser.value(QLatin1String(name)); }
    void add(const char *name, const QString &description, const QString &valueName);

    QCommandLineParser m_parser;
};

Parser::Parser()
{
    m_parser.setApplicationDescription(tr("Werte eines Antriebs ansehen, ändern und vergleichen."));
    m_parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, tr("diese Hilfe")});
    m_parser.addOption({QStringLiteral("version"), tr("Version")});
    add("device", tr("Gerätebeschreibung, oder der Name einer mitgelieferten"), tr("DATEI"));
    add("project", tr("Projektordner; ohne ihn gelten die Defaultwerte"), tr("ORDNER"));
    add("drive", tr("Antrieb, mit dem F9 verbindet; ohne Anschluss 502"), tr("ADRESSE:ANSCHLUSS"));
    add("earlier", tr("anderes Gerät, dessen Defaultwerte im Vergleich vorn stehen"), tr("DATEI"));
    add("lang", tr("Sprache der Texte"), QStringLiteral("de|en"));
    add("access-level", tr("Zugriffsstufe von 0 (Bediener) bis 6 (Hersteller)"),
        QStringLiteral("N"));
    add("screenshot", tr("kein Fenster öffnen, sondern sein Bild in diese Datei schreiben"),
        tr("DATEI"));
    add("size", tr("Größe des Bilds, sonst 1280x800"), tr("BREITExHÖHE"));
    add("show", tr("was das Bild zeigt; comparison vergleicht vor und nach --write"),
        QStringLiteral("parameters|comparison"));
    add("search", tr("im Bild gesuchter Text"), tr("TEXT"));
    add("write", tr("vor dem Bild geschriebener Wert, beliebig oft"), tr("ADRESSE=TEXT"));
    add("edit", tr("im Bild in sein Feld getippter Wert"), tr("ADRESSE=TEXT"));
}

void Parser::add(const char *name, const QString &description, const QString &valueName)
{
    m_parser.addOption({QString::fromLatin1(name), description, valueName});
}

QString Parser::readInto(DeskOptions &options) const
{
    options.device = value("device");
    options.project = value("project");
    options.earlierDevice = value("earlier");
    options.language = value("lang");
    options.screenshotFile = value("screenshot");
    options.searchedText = value("search");
    if (!m_parser.positionalArguments().isEmpty())
        return tr("unerwartet: \"%1\"").arg(m_parser.positionalArguments().constFirst());
    if (!options.project.isEmpty() && options.device.isEmpty())
        return tr("--project braucht --device");
    if (isSet("drive")) {
        options.drive = DriveAddress::of(value("drive"));
        if (!options.drive)
            return tr("--drive nimmt Adresse und Anschluss, zum Beispiel 10.0.0.7:502");
    }
    if (!options.earlierDevice.isEmpty() && options.device.isEmpty())
        return tr("--earlier braucht --device");
    if (isSet("lang") && !isLanguage(options.language))
        return tr("--lang nimmt de oder en");
    if (isSet("access-level")) {
        bool isNumber = false;
        options.accessLevel = value("access-level").toUInt(&isNumber);
        if (!isNumber || *options.accessLevel > SelectorBar::GreatestAccessLevel)
            return tr("--access-level nimmt eine Zahl von 0 bis 6");
    }
    const QString problem = readView(options);
    return problem.isEmpty() ? readInputs(options) : problem;
}

QString Parser::readView(DeskOptions &options) const
{
    if (isSet("size")) {
        const std::optional<QSize> size = sizeOf(value("size"));
        if (!size)
            return tr("--size nimmt Breite und Höhe, zum Beispiel 1280x800");
        options.size = *size;
    }
    if (!isSet("show") || value("show") == QLatin1String("parameters"))
        return {};
    if (value("show") != QLatin1String("comparison"))
        return tr("--show nimmt parameters oder comparison");
    options.page = DeskOptions::ePage::Comparison;
    return {};
}

QString Parser::readInputs(DeskOptions &options) const
{
    const QString problem = tr("erwartet wird ADRESSE=TEXT, zum Beispiel 1.H00=15");
    for (const QString &text : m_parser.values(QStringLiteral("write"))) {
        const std::optional<DeskOptions::Input> input = inputOf(text);
        if (!input)
            return problem;
        options.writes.append(*input);
    }
    if (isSet("edit"))
        options.edit = inputOf(value("edit"));
    return isSet("edit") && !options.edit ? problem : QString();
}

} // namespace

std::optional<DeskOptions> DeskOptions::read(
    const QStringList &words, QString &error, QString &answer)
{
    Parser parser;
    if (!parser.parse(words)) {
        error = parser.parser().errorText();
        return {};
    }
    if (parser.parser().isSet(QStringLiteral("help"))) {
        answer = parser.parser().helpText();
        return {};
    }
    if (parser.parser().isSet(QStringLiteral("version"))) {
        answer = QStringLiteral("krparameter-desk " KR_VERSION "\n");
        return {};
    }
    DeskOptions options;
    error = parser.readInto(options);
    return error.isEmpty() ? std::optional(options) : std::nullopt;
}

QString DeskOptions::languageOf(const QStringList &words)
{
    Parser parser;
    parser.parse(words);
    const QString language = parser.parser().value(QStringLiteral("lang"));
    return isLanguage(language) ? language : QString();
}

bool DeskOptions::needsNoScreen(int argc, const char *const argv[])
{
    return std::any_of(argv, argv + argc, [](std::string_view word) {
        return word == "--screenshot" || word.starts_with("--screenshot=") || word == "--help"
            || word == "-h" || word == "--version";
    });
}
